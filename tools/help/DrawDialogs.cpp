#include <QApplication>
#include <QDir>
#include <iostream>
#include <memory>
#include <utility>

#include "base/RunTimeError.h"
#include "common/HeadlessMessageHelper.h"
#include "control/ModuleWide.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmLanguage.h"
#include "linux/LinuxPlatform.h"
#include "localisation/LanguageFile.h"
#include "qt/FormView.h"
#include "qt/QtEventLoop.h"

namespace tessara {
namespace {

/// Draws a dialog to a file when it is shown, then cancels it.
class DialogPicture : public FormObserver {
 public:
  explicit DialogPicture(QString file) : file_(std::move(file)) {}

  [[nodiscard]] bool isSaved() const { return saved_; }

  void formShown(Form& form) override {
    view_ = new FormView(form, nullptr);
    view_->show();
    saved_ = view_->grab().save(file_, "PNG");
    form.cancelButton().press();
  }
  void formHidden(Form& /*form*/) override { view_->release(); }

 private:
  QString file_;
  FormView* view_ = nullptr;
  bool saved_ = false;
};

bool draw(Form& form, EventLoop& loop, const QString& file) {
  DialogPicture picture(file);
  form.showModal(loop, &picture);
  if (!picture.isSaved()) {
    std::cerr << file.toStdString() << " cannot be written\n";
  }
  return picture.isSaved();
}

bool drawDialogs(const std::string& languageFile, std::int16_t language, const QDir& folder) {
  LanguageFile texts = LanguageFile::open(languageFile);
  if (!readLanguageFile(texts, u".", moduleWide())) {
    std::cerr << languageFile << ": not a language file that the control accepts\n";
    return false;
  }
  QtEventLoop loop;
  LinuxPlatform platform(loop, std::make_shared<HeadlessMessageHelper>(std::cerr),
                         {.looksForDevices = false, .keepsSettings = false});
  // The dialogs use objects that a control provides.
  moduleWide().RegistryHelper = platform.createRegistryHelper();
  moduleWide().FileSystem = platform.createFileSystem();
  frmLanguage languages(platform);
  languages.SetLanguage(language);
  frmAbout about(platform);
  about.SetVersionString(std::u16string(maker.version));
  return draw(languages, loop, folder.filePath("dialog-language.png")) &&
         draw(about, loop, folder.filePath("dialog-about.png"));
}

}  // namespace
}  // namespace tessara

/// Draws the dialogs of the control for the help, in its language.
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 4) {
    std::cerr << "usage: modulinfo_draw_dialogs LANGUAGE_FILE NUMBER OUT_FOLDER\n";
    return 2;
  }
  try {
    const auto language = static_cast<std::int16_t>(QByteArray(argv[2]).toInt());
    return tessara::drawDialogs(argv[1], language, QDir(QString::fromLocal8Bit(argv[3]))) ? 0 : 1;
  } catch (const tessara::RunTimeError& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return 1;
  }
}
