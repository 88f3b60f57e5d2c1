#include <QAbstractButton>

#include "DialogOnScreen.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmLanguage.h"
#include "qt/LabelView.h"
#include "qt/TextButtonView.h"

namespace tessara::testing {
namespace {

/// Both dialogs in each of the languages, by number, with the texts of its file.
class DialogLanguages : public DialogOnScreen, public ::testing::WithParamInterface<std::int16_t> {
 protected:
  DialogLanguages() {
    platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
    control->put_AppPathString(fromUtf8(TESSARA_LANGUAGE_FOLDER));
    control->put_Language(GetParam());
    control->UserControl_Show();
  }

  /// Calls the function with each dialog in turn.
  void lookAt(const std::function<void(FormView&, const Form&)>& look) {
    press(panel.cmdSettings, [&](FormView& view) { look(view, *moduleWide().frmLanguage.lock()); });
    press(panel.CmdAbout, [&](FormView& view) { look(view, *moduleWide().frmAbout.lock()); });
  }

  /// Calls the function with each visible widget of both.
  void lookAtEach(const std::function<void(QWidget&, const Widget&)>& look) {
    lookAt([&](FormView& view, const Form& form) {
      std::size_t seen = 0;
      for (const Widget* widget : form.widgets()) {
        if (QWidget* shown = view.viewOf(*widget)) {
          look(*shown, *widget);
          ++seen;
        }
      }
      // The title bar is drawn by the window system.
      EXPECT_EQ(seen, form.widgets().size() - 1);
    });
  }
};

INSTANTIATE_TEST_SUITE_P(AllEleven, DialogLanguages, ::testing::Range<std::int16_t>(1, 12));

TEST_P(DialogLanguages, NoTextIsCutOff) {
  lookAtEach([](QWidget& shown, const Widget& widget) {
    if (const auto* label = dynamic_cast<const LabelView*>(&shown)) {
      EXPECT_FALSE(label->isCut()) << label->text().toStdString();
    } else if (const auto* button = dynamic_cast<const TextButtonView*>(&shown)) {
      EXPECT_LE(button->neededWidth(), button->width()) << toUtf8(widget.name());
    } else if (widget.kind() != WidgetKind::PictureBox) {
      EXPECT_LE(shown.sizeHint().width(), shown.width()) << toUtf8(widget.caption());
    }
  });
}

TEST_P(DialogLanguages, EveryTextIsThere) {
  lookAtEach([](QWidget& /*shown*/, const Widget& widget) {
    const bool isText =
        widget.kind() != WidgetKind::PictureBox && widget.name() != u"LabelRevision";
    EXPECT_EQ(isText && widget.caption().empty(), false) << toUtf8(widget.name());
  });
}

TEST_P(DialogLanguages, WidgetsAreInsideTheWindowAndDoNotOverlap) {
  lookAt([](FormView& view, const Form& form) {
    std::vector<const Widget*> others;
    for (const Widget* widget : form.widgets()) {
      const QWidget* shown = view.viewOf(*widget);
      if (shown == nullptr) continue;
      EXPECT_TRUE(view.rect().contains(shown->geometry())) << toUtf8(widget->name());
      for (const Widget* other : others) {
        EXPECT_FALSE(shown->geometry().intersects(view.viewOf(*other)->geometry()))
            << toUtf8(widget->name()) << " and " << toUtf8(other->name());
      }
      others.push_back(widget);
    }
  });
}

TEST_P(DialogLanguages, EveryPictureIsThere) {
  lookAtEach([](QWidget& shown, const Widget& widget) {
    if (widget.kind() == WidgetKind::PictureBox) {
      EXPECT_FALSE(Picture::of(widget.state().picture, {}).isNull()) << toUtf8(widget.name());
      EXPECT_GT(shown.width(), 0);
    }
  });
}

TEST_P(DialogLanguages, TheTitleComesFromTheFile) {
  lookAt([](FormView& view, const Form& form) {
    EXPECT_FALSE(view.windowTitle().isEmpty());
    EXPECT_EQ(view.windowTitle(), toQt(form.titleBar()->caption()));
  });
  EXPECT_FALSE(moduleWide().LanguageFileError);
}

}  // namespace
}  // namespace tessara::testing
