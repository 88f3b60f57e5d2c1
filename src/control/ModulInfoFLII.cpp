#include "control/ModulInfoFLII.h"

#include "control/Control.h"

namespace tessara {

ModulInfoFLII::ModulInfoFLII(Platform& platform, HostEvents& events)
    : control_(std::make_unique<Control>(platform, events)) {}

ModulInfoFLII::~ModulInfoFLII() {
  UserControl_Terminate();
}

void ModulInfoFLII::UserControl_Initialize() {
  control_->UserControl_Initialize();
}

void ModulInfoFLII::UserControl_Terminate() {
  control_->UserControl_Terminate();
}

void ModulInfoFLII::UserControl_Show() {
  control_->UserControl_Show();
}

WidgetOwner& ModulInfoFLII::panel() {
  return control_->panel;
}

const WidgetOwner& ModulInfoFLII::panel() const {
  return control_->panel;
}

WindowHandle ModulInfoFLII::get_hWnd() const {
  return control_->hWnd;
}

void ModulInfoFLII::put_hWnd(WindowHandle window) {
  control_->hWnd = window;
}

void ModulInfoFLII::setFormObserver(FormObserver* observer) {
  control_->formObserver = observer;
}

const LanguageState& ModulInfoFLII::texts() {
  return moduleWide();
}

std::optional<CatalogResult> ModulInfoFLII::catalogVerdict() const {
  return control_->catalogVerdict;
}

bool ModulInfoFLII::hidesFirmware() const {
  return control_->HideFwVersion == 1;
}

std::int16_t ModulInfoFLII::vendorId() const {
  return control_->VendorID;
}

std::int16_t ModulInfoFLII::groupId() const {
  return control_->GroupID;
}

std::int16_t ModulInfoFLII::statusWord() const {
  return control_->StatusWord;
}

std::int32_t ModulInfoFLII::ledWord() const {
  return control_->LedWord;
}

std::u16string ModulInfoFLII::decimalSeparator() const {
  return control_->decimalSeparator();
}

}  // namespace tessara
