#pragma once

#include <cstdint>

#include "dialogs/Dialog.h"

namespace tessara {

/// The dialog for choosing the language. It changes nothing by itself: once it has hidden itself,
/// the caller reads Tag, "1" for OK and "2" for Cancel, and the choice.
class frmLanguage : public Dialog {
 public:
  explicit frmLanguage(Platform& platform);

  /// The language number, in and out. With 0 the dialog preselects the language of the system's
  /// country; with an unknown number, German.
  void SetLanguage(std::int16_t language) { nLanguage = language; }
  [[nodiscard]] std::int16_t GetLanguage() const { return nLanguage; }

  [[nodiscard]] Widget& defaultButton() override { return cmdOK; }
  [[nodiscard]] Widget& cancelButton() override { return cmdCancel; }
  [[nodiscard]] Place area() const override { return {0, 0, 6000, 3570}; }

  /// One option for each language, in the order of the numbers and in its own words; captions of
  /// question marks are replaced by the current texts.
  Widget OptionDE{*this,
                  u"OptionDE",
                  WidgetKind::Option,
                  {.caption = u"Deutsch", .place = {780, 240, 2130, 285}}};
  Widget OptionGB{*this,
                  u"OptionGB",
                  WidgetKind::Option,
                  {.caption = u"English", .place = {780, 660, 2130, 285}}};
  Widget OptionFR{*this,
                  u"OptionFR",
                  WidgetKind::Option,
                  {.caption = u"français", .place = {780, 1080, 2130, 285}}};
  Widget OptionES{*this,
                  u"OptionES",
                  WidgetKind::Option,
                  {.caption = u"español", .place = {780, 1500, 2130, 285}}};
  Widget OptionIT{*this,
                  u"OptionIT",
                  WidgetKind::Option,
                  {.caption = u"italiano", .place = {780, 1920, 2130, 285}}};
  Widget OptionPT{*this,
                  u"OptionPT",
                  WidgetKind::Option,
                  {.caption = u"português", .place = {780, 2340, 2130, 285}}};
  Widget OptionTR{*this,
                  u"OptionTR",
                  WidgetKind::Option,
                  {.caption = u"Türkçe", .place = {3690, 660, 2130, 285}}};
  Widget OptionRU{*this,
                  u"OptionRU",
                  WidgetKind::Option,
                  {.caption = u"???????", .place = {3690, 1080, 2130, 285}}};
  Widget OptionCN{*this,
                  u"OptionCN",
                  WidgetKind::Option,
                  {.caption = u"?\?(?\?)", .place = {3690, 1500, 2130, 285}}};
  Widget OptionPL{*this,
                  u"OptionPL",
                  WidgetKind::Option,
                  {.caption = u"polski", .place = {3690, 240, 2130, 285}}};
  Widget OptionJP{*this,
                  u"OptionJP",
                  WidgetKind::Option,
                  {.caption = u"???", .place = {3690, 1920, 2130, 285}}};

  /// The flags beside the options; the last one spans Chinese and Japanese.
  Widget UniPictureBox1{*this,
                        u"UniPictureBox1",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/DE", .place = {270, 240, 420, 285}}};
  Widget UniPictureBox2{*this,
                        u"UniPictureBox2",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/GB", .place = {270, 660, 420, 285}}};
  Widget UniPictureBox3{*this,
                        u"UniPictureBox3",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/FR", .place = {270, 1080, 420, 285}}};
  Widget UniPictureBox4{*this,
                        u"UniPictureBox4",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/ES", .place = {270, 1500, 420, 285}}};
  Widget UniPictureBox5{*this,
                        u"UniPictureBox5",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/IT", .place = {270, 1920, 420, 285}}};
  Widget UniPictureBox6{*this,
                        u"UniPictureBox6",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/PT", .place = {270, 2340, 420, 285}}};
  Widget UniPictureBox7{*this,
                        u"UniPictureBox7",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/TR", .place = {3180, 660, 420, 285}}};
  Widget UniPictureBox8{*this,
                        u"UniPictureBox8",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/RU", .place = {3180, 1080, 420, 285}}};
  Widget UniPictureBox9{*this,
                        u"UniPictureBox9",
                        WidgetKind::PictureBox,
                        {.picture = u"flags/PL", .place = {3180, 240, 420, 285}}};
  Widget UniPictureBox10{*this,
                         u"UniPictureBox10",
                         WidgetKind::PictureBox,
                         {.picture = u"flags/CN-JP", .place = {3180, 1500, 420, 705}}};

  Widget cmdOK{*this, u"cmdOK", WidgetKind::Button, button(u"OK", {2880, 2940, 1350, 405})};
  Widget cmdCancel{*this, u"cmdCancel", WidgetKind::Button, button({}, {4380, 2940, 1350, 405})};

 protected:
  void Form_Load() override;

 private:
  void preselect();
  void cmdOK_Click();
  void cmdCancel_Click();

  std::int16_t nLanguage = 0;
};

}  // namespace tessara
