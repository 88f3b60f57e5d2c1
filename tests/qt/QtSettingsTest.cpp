#include <QSettings>
#include <QStringList>
#include <map>
#include <string>

#include "base/RunTimeError.h"
#include "linux/SettingsFolder.h"
#include "linux/SettingsStore.h"

namespace tessara::testing {
namespace {

/// The settings file as a program sees that is written with Qt.
class QtSettings : public QSettings {
 public:
  QtSettings()
      : QSettings(IniFormat, UserScope, SettingsStore::organisation, SettingsStore::application) {}
};

/// Hosts that are written with Qt keep their own settings in the same file.
class QtSettingsTest : public SettingsFolder {
 protected:
  QtSettingsTest() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString((folder() / "user").string()));
  }

  SettingsStore store;
};

const std::map<std::string, std::string> awkwardValues{{"Ports/COM9/Name", "\\Device\\new"},
                                                       {"Settings/Logo", "a, \"b\"; c.png"},
                                                       {"Settings/COM Port", "3"},
                                                       {"Settings/Icon", " Gerät.png "},
                                                       {"Settings/Empty", ""},
                                                       {"General/Named", "x=y"},
                                                       {"Loose", "@home"}};

TEST_F(QtSettingsTest, QtReadsWhatTheStoreHasWritten) {
  for (const auto& [name, text] : awkwardValues) store.setValue(name, text);
  QtSettings settings;
  ASSERT_EQ(settings.fileName().toStdString(), store.path());
  for (const auto& [name, text] : awkwardValues) {
    EXPECT_EQ(settings.value(QString::fromStdString(name)).toString().toStdString(), text) << name;
  }
}

TEST_F(QtSettingsTest, TheStoreReadsWhatQtHasWritten) {
  {
    QtSettings settings;
    for (const auto& [name, text] : awkwardValues) {
      settings.setValue(QString::fromStdString(name), QString::fromStdString(text));
    }
  }
  for (const auto& [name, text] : awkwardValues) EXPECT_EQ(store.value(name), text) << name;
}

TEST_F(QtSettingsTest, ObjectsAndListsOfQtAreATypeMismatch) {
  {
    QtSettings settings;
    settings.setValue("Settings/Nothing", QVariant());
    settings.setValue("Settings/EmptyList", QStringList());
    settings.setValue("Settings/Numbers", QVariantList{1, 2});
    settings.setValue("Settings/OneNumber", QVariantList{1});
  }
  for (const char* name : {"Nothing", "EmptyList", "Numbers", "OneNumber"}) {
    try {
      static_cast<void>(store.value(std::string("Settings/") + name));
      ADD_FAILURE() << name;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::TypeMismatch) << name;
    }
  }
}

TEST_F(QtSettingsTest, TheStoreKeepsWhatQtHasWritten) {
  const auto value = QVariant(QByteArray("\0\x1\xff", 3));
  {
    QtSettings settings;
    settings.setValue("Window/Geometry", value);
    settings.setValue(QStringLiteral("Fenster/Größe"), QStringList{"a", "b"});
  }
  store.setValue("Settings/Language", "2");
  const QtSettings settings;
  EXPECT_EQ(settings.value("Window/Geometry"), value);
  EXPECT_EQ(settings.value(QStringLiteral("Fenster/Größe")).toStringList(),
            (QStringList{"a", "b"}));
}

}  // namespace
}  // namespace tessara::testing
