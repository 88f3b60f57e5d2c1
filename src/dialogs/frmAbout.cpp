#include "dialogs/frmAbout.h"

#include <algorithm>
#include <array>

#include "base/Variant.h"
#include "control/ModuleWide.h"

namespace tessara {
namespace {

/// The captions in the first column of contact data, and their entries in TextMainFrame.
struct ContactCaption {
  Widget frmAbout::*label;
  std::size_t entry;
};
constexpr std::array<ContactCaption, 4> contactCaptions{{{&frmAbout::LblPhone, 22},
                                                         {&frmAbout::LblFax, 23},
                                                         {&frmAbout::LblEmail, 24},
                                                         {&frmAbout::LblWeb, 25}}};
constexpr std::array secondColumn{&frmAbout::LblPhoneNr, &frmAbout::LblFaxNr,
                                  &frmAbout::HyperLinkEmail, &frmAbout::HyperLinkWeb};

/// Characters that fit into the first column; each further one moves the second column.
constexpr std::size_t roomForCharacters = 10;
constexpr std::size_t twipsPerCharacter = 100;
constexpr std::size_t secondColumnLeft = 4600;
/// Longer texts overflow as well, and the number stays within 32 bits.
constexpr std::size_t maxCounted = 1000;

std::u16string withScheme(std::u16string_view scheme, std::u16string_view address) {
  const bool hasScheme = address.find(u"://") != std::u16string_view::npos;
  return hasScheme ? std::u16string(address) : std::u16string(scheme).append(address);
}

}  // namespace

frmAbout::frmAbout(Platform& platform) : Dialog(u"frmAbout", platform) {
  Label31.setCaption(u"\u00A9 " + std::u16string(maker.year) + u" " +
                     std::u16string(maker.company));
  makeButton(cmdOK, [this] { cmdOK_Click(); });
  HyperLinkEmail.setClickHandler([this] { open(u"mailto:" + HyperLinkEmail.caption()); });
  HyperLinkWeb.setClickHandler([this] { open(withScheme(u"https://", HyperLinkWeb.caption())); });
}

void frmAbout::Form_Load() {
  Dialog::Form_Load();
  const auto& texts = moduleWide().TextMainFrame;
  LblInfo.setCaption(texts[16]);
  LblFrameInformation.setCaption(texts[5]);
  LblProductContactInfo.setCaption(texts[21]);
  for (const auto& row : contactCaptions) {
    (this->*row.label).setCaption(texts[row.entry] + u":");
  }
  moveSecondColumn();
}

void frmAbout::moveSecondColumn() {
  std::size_t longestCaption = 0;
  for (const auto& row : contactCaptions) {
    longestCaption = std::max(longestCaption, moduleWide().TextMainFrame[row.entry].size());
  }
  if (longestCaption <= roomForCharacters) {
    return;
  }
  const std::size_t characters = std::min(longestCaption, maxCounted) - roomForCharacters;
  const std::int16_t left =
      narrowToInt16(static_cast<std::int32_t>(characters * twipsPerCharacter + secondColumnLeft),
                    "the left position of the contact data");
  for (const auto column : secondColumn) {
    (this->*column).setLeft(left);
  }
}

void frmAbout::open(const std::u16string& address) {
  // Without a program for mail or the web a link does nothing.
  platform_.shell().ShellExecuteA(0, u"Open", address, {}, {}, Shell::showNormal);
}

void frmAbout::cmdOK_Click() {
  showIdle(cmdOK);
  hide();
  tag_ = u"1";
}

}  // namespace tessara
