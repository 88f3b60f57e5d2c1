#pragma once

#include <functional>
#include <vector>

namespace tessara {

/// Says when the next request may be handled.
///
/// A request runs in the middle of whatever let the event loop run: of a request that is not
/// answered yet, of a yield of the control (the background scan yields with no request behind it),
/// of a form that waits for its user. Only a form lets others in, unless the client wanted to come
/// in everywhere; even then not too deep, since each one lies on the stack.
class Turns {
 public:
  /// How many requests may lie in the middle of each other.
  static constexpr int deepest = 100;

  enum class Kind { Request, Yield };

  explicit Turns(bool isReentrant) : isReentrant_(isReentrant) {}

  /// The time from its construction to its end is taken by a request or a yield.
  class Turn {
   public:
    Turn(Turns& turns, Kind kind);
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn();

   private:
    Turns& turns_;
  };

  /// `form` is shown modally from now on, or no longer.
  void formShown(const void* form);
  void formHidden(const void* form);

  [[nodiscard]] bool mayHandle() const;

  /// Runs whenever something has ended or a form was shown and the next request may be handled.
  std::function<void()> nextMayCome;

 private:
  /// One thing that is under way; a form has its place in memory for a name.
  struct Layer {
    const void* of;
    bool isForm;
    bool isRequest;
  };

  void remove(const void* of);
  void tell() const;

  bool isReentrant_;
  std::vector<Layer> layers_;
};

}  // namespace tessara
