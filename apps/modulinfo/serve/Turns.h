#pragma once

#include <functional>
#include <vector>

#include "widgets/Form.h"

namespace tessara {

/// Decides when the next request may be handled.
///
/// A request runs inside whatever let the event loop run: a request that is not answered yet, a
/// yield of the control (the background scan yields without a request), a form that waits for its
/// user. Only a form lets requests in, unless the client has asked for reentrant handling; even
/// then the depth is limited, since each request takes room on the stack.
class Turns {
 public:
  /// Maximum number of requests inside each other.
  static constexpr int maxNested = 100;

  enum class Kind { Request, Yield };

  explicit Turns(bool isReentrant) : isReentrant_(isReentrant) {}

  /// A request or a yield in progress, from construction to destruction.
  class Turn {
   public:
    Turn(Turns& turns, Kind kind);
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn();

   private:
    Turns& turns_;
  };

  /// `form` has been shown modally, or hidden.
  void formShown(Form& form);
  void formHidden(Form& form);
  /// The forms that are shown, oldest first.
  [[nodiscard]] std::vector<Form*> forms() const;

  [[nodiscard]] bool mayHandle() const;

  /// Called when the next request may be handled, after something has ended or a form was shown.
  std::function<void()> nextMayCome;

 private:
  /// One thing in progress: a form that is shown, or a request or yield with its turn.
  struct Layer {
    Form* form;
    const Turn* turn;
    bool isRequest;
  };

  void remove(const Form* form, const Turn* turn);
  void notify() const;

  bool isReentrant_;
  std::vector<Layer> layers_;
};

}  // namespace tessara
