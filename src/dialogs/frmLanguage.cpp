#include "dialogs/frmLanguage.h"

#include <array>

#include "control/ModuleWide.h"
#include "localisation/Language.h"

namespace tessara {
namespace {

/// The options by language number - 1.
constexpr std::array options{&frmLanguage::OptionDE, &frmLanguage::OptionGB, &frmLanguage::OptionFR,
                             &frmLanguage::OptionES, &frmLanguage::OptionIT, &frmLanguage::OptionPT,
                             &frmLanguage::OptionTR, &frmLanguage::OptionRU, &frmLanguage::OptionCN,
                             &frmLanguage::OptionPL, &frmLanguage::OptionJP};

}  // namespace

frmLanguage::frmLanguage(Platform& platform) : Dialog(u"frmLanguage", platform) {
  makeButton(cmdOK, [this] { cmdOK_Click(); });
  makeButton(cmdCancel, [this] { cmdCancel_Click(); });
}

void frmLanguage::Form_Load() {
  Dialog::Form_Load();
  const ModuleWide& texts = moduleWide();
  cmdCancel.setCaption(texts.TextButtons[0]);
  OptionCN.setCaption(texts.TextModulInfo[24]);
  OptionRU.setCaption(texts.TextModulInfo[23]);
  OptionJP.setCaption(texts.TextModulInfo[25]);
  preselect();
}

void frmLanguage::preselect() {
  if (nLanguage == 0) {
    const std::int16_t language = languageOfCountry(GetSystemCountryCode(platform_.locale()));
    (this->*options[static_cast<std::size_t>(language - 1)]).setValue(true);
  } else if (nLanguage > 0 && static_cast<std::size_t>(nLanguage) <= options.size()) {
    (this->*options[static_cast<std::size_t>(nLanguage - 1)]).setValue(true);
  } else {
    // Such a number loads the English texts; the dialog nevertheless offers German.
    OptionDE.setValue(true);
  }
}

void frmLanguage::cmdOK_Click() {
  showIdle(cmdOK);
  for (std::size_t i = 0; i < options.size(); ++i) {
    if ((this->*options[i]).state().value) {
      nLanguage = static_cast<std::int16_t>(i + 1);
    }
  }
  hide();
  tag_ = u"1";
}

void frmLanguage::cmdCancel_Click() {
  showIdle(cmdCancel);
  hide();
  tag_ = u"2";
}

}  // namespace tessara
