#include "serve/Turns.h"

#include <algorithm>

namespace tessara {

Turns::Turn::Turn(Turns& turns, Kind kind) : turns_(turns) {
  turns_.layers_.push_back({this, false, kind == Kind::Request});
}

Turns::Turn::~Turn() {
  turns_.remove(this);
}

void Turns::formShown(const void* form) {
  layers_.push_back({form, true, false});
  notify();
}

void Turns::formHidden(const void* form) {
  remove(form);
}

bool Turns::mayHandle() const {
  const auto requests = std::count_if(layers_.begin(), layers_.end(),
                                      [](const Layer& layer) { return layer.isRequest; });
  if (requests >= maxNested) return false;
  return isReentrant_ || layers_.empty() || layers_.back().isForm;
}

void Turns::remove(const void* of) {
  std::erase_if(layers_, [of](const Layer& layer) { return layer.of == of; });
  notify();
}

void Turns::notify() const {
  if (nextMayCome && mayHandle()) nextMayCome();
}

}  // namespace tessara
