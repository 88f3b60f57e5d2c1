#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace tessara {

/// The program that the user, or else the system, has registered for a kind of file or address.
class RegisteredProgram {
 public:
  /// The program for the type of the file that stands there. None for a type that is unknown: a
  /// program that opens any bytes is no help to a person who wants to read.
  static RegisteredProgram forFile(const std::filesystem::path& file);
  /// The program for the scheme of the address, such as "mailto".
  static RegisteredProgram forAddress(const std::string& address);

  RegisteredProgram(RegisteredProgram&& other) noexcept;
  RegisteredProgram& operator=(RegisteredProgram&&) = delete;
  ~RegisteredProgram();

  /// False if no installed program is registered.
  [[nodiscard]] bool isFound() const { return found_ != nullptr; }

  /// Starts the program in the folder that its desktop entry names, or else in `folder` (empty for
  /// that of this program), and does not wait for it. False if it cannot be started.
  [[nodiscard]] bool start(const std::filesystem::path& folder) const;

 private:
  struct Found;
  explicit RegisteredProgram(std::unique_ptr<Found> found);

  std::unique_ptr<Found> found_;
};

/// The scheme of an address, in lower case; empty for the path of a file. A single letter is a
/// drive of another system.
std::string schemeOf(const std::string& target);

}  // namespace tessara
