#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tessara::testing {

/// What happened, in order: every fake of one test writes into the same log.
class CallLog {
 public:
  void add(std::string entry) { entries_.push_back(std::move(entry)); }
  void clear() { entries_.clear(); }
  [[nodiscard]] const std::vector<std::string>& entries() const { return entries_; }

  /// The entries that begin with one of the words.
  [[nodiscard]] std::vector<std::string> only(const std::vector<std::string>& beginnings) const {
    std::vector<std::string> found;
    for (const auto& entry : entries_) {
      for (const auto& beginning : beginnings) {
        if (entry.starts_with(beginning)) {
          found.push_back(entry);
          break;
        }
      }
    }
    return found;
  }

  [[nodiscard]] std::size_t count(const std::string& beginning) const {
    return only({beginning}).size();
  }

 private:
  std::vector<std::string> entries_;
};

}  // namespace tessara::testing
