#pragma once

#include <string>

#include "dialogs/Dialog.h"
#include "dialogs/Maker.h"

namespace tessara {

/// The about box: the product, its version and its manufacturer. Tag is "1" after OK.
class frmAbout : public Dialog {
 public:
  explicit frmAbout(Platform& platform);

  void SetVersionString(std::u16string version) { LabelRevision.setCaption(std::move(version)); }

  [[nodiscard]] Widget& defaultButton() override { return cmdOK; }
  [[nodiscard]] Widget& cancelButton() override { return cmdOK; }
  [[nodiscard]] Place area() const override { return {0, 0, 7950, 5010}; }

  Widget Picture2{*this,
                  u"Picture2",
                  WidgetKind::PictureBox,
                  {.picture = u"application", .place = {300, 270, 960, 960}}};
  /// The name of the configuration program, the same in every language.
  Widget LblAppTitel{*this,
                     u"LblAppTitel",
                     WidgetKind::Label,
                     {.caption = u"MERIDEX-CONF", .place = {1470, 330, 4500, 450}}};
  Widget LabelRevision{*this,
                       u"LabelRevision",
                       WidgetKind::Label,
                       {.caption = u"1.0.0", .place = {1470, 810, 4500, 285}}};
  Widget UniPictureBox1{*this,
                        u"UniPictureBox1",
                        WidgetKind::PictureBox,
                        {.picture = u"about/Modules", .place = {6000, 240, 1650, 1080}}};

  Widget LblFrameInformation{
      *this, u"LblFrameInformation", WidgetKind::Label, {.place = {300, 1500, 7350, 285}}};
  Widget LblInfo{*this, u"LblInfo", WidgetKind::Label, {.place = {300, 1845, 7350, 510}}};

  Widget LblProductContactInfo{
      *this, u"LblProductContactInfo", WidgetKind::Label, {.place = {300, 2565, 7350, 285}}};
  Widget LblCompany{*this,
                    u"LblCompany",
                    WidgetKind::Label,
                    {.caption = std::u16string(maker.company), .place = {300, 2925, 3000, 270}}};
  Widget LblCompanyAddress1{
      *this,
      u"LblCompanyAddress1",
      WidgetKind::Label,
      {.caption = std::u16string(maker.address1), .place = {300, 3225, 3000, 270}}};
  Widget LblCompanyAddress2{
      *this,
      u"LblCompanyAddress2",
      WidgetKind::Label,
      {.caption = std::u16string(maker.address2), .place = {300, 3525, 3000, 270}}};
  Widget LblPhone{*this, u"LblPhone", WidgetKind::Label, {.place = {3450, 2925, 1080, 270}}};
  Widget LblFax{*this, u"LblFax", WidgetKind::Label, {.place = {3450, 3225, 1080, 270}}};
  Widget LblEmail{*this, u"LblEmail", WidgetKind::Label, {.place = {3450, 3525, 1080, 270}}};
  Widget LblWeb{*this, u"LblWeb", WidgetKind::Label, {.place = {3450, 3825, 1080, 270}}};
  /// The second column; it moves to the right when a caption of the first is long.
  Widget LblPhoneNr{*this,
                    u"LblPhoneNr",
                    WidgetKind::Label,
                    {.caption = std::u16string(maker.phone), .place = {4600, 2925, 3050, 270}}};
  Widget LblFaxNr{*this,
                  u"LblFaxNr",
                  WidgetKind::Label,
                  {.caption = std::u16string(maker.fax), .place = {4600, 3225, 3050, 270}}};
  Widget HyperLinkEmail{*this,
                        u"HyperLinkEmail",
                        WidgetKind::HyperLink,
                        {.caption = std::u16string(maker.mail), .place = {4600, 3525, 3050, 270}}};
  Widget HyperLinkWeb{*this,
                      u"HyperLinkWeb",
                      WidgetKind::HyperLink,
                      {.caption = std::u16string(maker.web), .place = {4600, 3825, 3050, 270}}};

  Widget Label31{*this, u"Label31", WidgetKind::Label, {.place = {300, 4440, 5700, 270}}};
  Widget cmdOK{*this, u"cmdOK", WidgetKind::Button, button(u"OK", {6300, 4365, 1350, 405})};

 protected:
  /// A second column beyond the 16-bit range is an overflow (error 6).
  void Form_Load() override;

 private:
  void moveSecondColumn();
  void open(const std::u16string& address);
  void cmdOK_Click();
};

}  // namespace tessara
