#include "serve/Turns.h"

#include <algorithm>

namespace tessara {

Turns::Turn::Turn(Turns& turns, Kind kind) : turns_(turns) {
  turns_.layers_.push_back({nullptr, this, kind == Kind::Request});
}

Turns::Turn::~Turn() {
  turns_.remove(nullptr, this);
}

void Turns::formShown(Form& form) {
  layers_.push_back({&form, nullptr, false});
  notify();
}

void Turns::formHidden(Form& form) {
  remove(&form, nullptr);
}

std::vector<Form*> Turns::forms() const {
  std::vector<Form*> forms;
  for (const Layer& layer : layers_) {
    if (layer.form != nullptr) forms.push_back(layer.form);
  }
  return forms;
}

bool Turns::mayHandle() const {
  const auto requests = std::count_if(layers_.begin(), layers_.end(),
                                      [](const Layer& layer) { return layer.isRequest; });
  if (requests >= maxNested) return false;
  return isReentrant_ || layers_.empty() || layers_.back().form != nullptr;
}

void Turns::remove(const Form* form, const Turn* turn) {
  std::erase_if(layers_,
                [&](const Layer& layer) { return layer.form == form && layer.turn == turn; });
  notify();
}

void Turns::notify() const {
  if (nextMayCome && mayHandle()) nextMayCome();
}

}  // namespace tessara
