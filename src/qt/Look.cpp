#include "qt/Look.h"

#include <QFontInfo>
#include <QPalette>
#include <QStringList>

#include "control/ModulInfoFLII.h"

namespace tessara {
namespace {

// Accents with a contrast of at least 4.5:1 on a light and on a dark background.
constexpr QRgb accentOnLight = 0xff0a66c2;
constexpr QRgb accentOnDark = 0xff6cb4ff;

QColor mix(const QColor& ground, const QColor& over, double share) {
  const auto blend = [share](float below, float above) {
    return static_cast<float>(below + (above - below) * share);
  };
  return QColor::fromRgbF(blend(ground.redF(), over.redF()), blend(ground.greenF(), over.greenF()),
                          blend(ground.blueF(), over.blueF()));
}

/// Unicode unifies characters that Chinese and Japanese write differently, so the system may choose
/// a font of the other language for them. These families are tried first, in this order.
QStringList familiesOfLanguage() {
  const std::u16string& language = ModulInfoFLII::texts().LanguageFileExtension;
  if (language == u"jlg") {
    return {"Noto Sans CJK JP", "IPAPGothic", "VL PGothic", "TakaoPGothic", "VL Gothic"};
  }
  if (language == u"clg") {
    return {"Noto Sans CJK SC", "WenQuanYi Micro Hei", "WenQuanYi Zen Hei"};
  }
  return {};
}

QFont fontOf(const QWidget& panel, double points, QFont::Weight weight) {
  QFont font = fontOfLanguage(panel.font());
  font.setPointSizeF(points);
  font.setWeight(weight);
  return font;
}

}  // namespace

QFont fontOfLanguage(QFont font) {
  if (const QStringList families = familiesOfLanguage(); !families.isEmpty()) {
    font.setFamilies(QStringList{QFontInfo(font).family()} + families);
  }
  return font;
}

Look Look::of(const QWidget& panel, double scale) {
  const QPalette& palette = panel.palette();
  const QColor ground = palette.color(QPalette::Active, QPalette::Base);
  const QColor text = palette.color(QPalette::Active, QPalette::Text);

  Look look;
  look.scale = scale;
  look.dark = ground.lightness() < text.lightness();
  look.text = text;
  look.caption = mix(ground, text, 0.66);
  look.faint = mix(ground, text, 0.38);
  look.card = ground;
  look.raised = mix(ground, text, look.dark ? 0.09 : 0.035);
  look.line = mix(ground, text, 0.16);
  look.edge = mix(ground, text, 0.34);
  look.accent = QColor(look.dark ? accentOnDark : accentOnLight);
  look.captionFont = fontOf(panel, 8 * scale, QFont::Normal);
  look.valueFont = fontOf(panel, 8.5 * scale, QFont::Normal);
  look.strongFont = fontOf(panel, 9 * scale, QFont::Bold);
  return look;
}

Inks Look::inks(bool enabled) const {
  const QColor pale = mix(card, text, 0.3);
  return enabled ? Inks{mix(card, text, 0.85), accent} : Inks{pale, pale};
}

QColor Look::ground(QRgb colour) const {
  const double shade = 1 - QColor(colour).lightnessF();
  return dark ? mix(card, text, 0.1 + 1.2 * shade) : QColor(colour);
}

QColor Look::tint(const QColor& ground, double share) const {
  return mix(ground, accent, share);
}

}  // namespace tessara
