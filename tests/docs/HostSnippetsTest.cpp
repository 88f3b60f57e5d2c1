#include <QMainWindow>

#include "base/Text.h"
#include "host/ModulInfoPanel.h"
#include "linux/SettingsFolder.h"

namespace {

/// A station of which nothing answers.
constexpr std::uint8_t nobody = 7;
std::uint8_t address = 192;

/// What the page leaves to the host: here it asks the module who it is.
bool writeParametersTo(tessara::CommunicationObject& module) {
  return !module.ReadDeviceIdentifier(address).empty();
}

#include "hosts_2.inc"

}  // namespace

namespace tessara::testing {
namespace {

class HostSnippets : public SettingsFolder {
 protected:
  HostSnippets() { ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1); }

  /// Transfers as the page does, to a module that was read, and keeps the activities.
  void transferToModule() {
    panel_.bringUp();
    panel_.read();
    QObject::connect(&panel_, &ModulInfoPanel::ModulActive,
                     [this](int status) { heard.push_back(status); });
    transfer(panel_.control());
    told = toUtf8(panel_.control().StatusString);
  }

  std::vector<int> heard;
  std::string told;

 private:
  ModulInfoPanel panel_{nullptr, std::filesystem::path(TESSARA_MODULES) / "tessara-tm-151.json"};
};

TEST_F(HostSnippets, TheShortestHostComesUp) {
  QMainWindow window;
#include "hosts_1.inc"
  window.setCentralWidget(panel);
  window.show();
  EXPECT_TRUE(panel->isVisible());
}

TEST_F(HostSnippets, ATransferIsDeclaredAndItsEndToo) {
  transferToModule();
  EXPECT_EQ(heard, (std::vector<int>{1, 0}));
}

TEST_F(HostSnippets, ATransferThatFailsSaysWhy) {
  address = nobody;
  transferToModule();
  EXPECT_EQ(heard, (std::vector<int>{1, 3}));
  EXPECT_NE(told.find("no answer"), std::string::npos) << told;
}

}  // namespace
}  // namespace tessara::testing
