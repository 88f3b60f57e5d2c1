#include <QMainWindow>

#include "base/Text.h"
#include "base/Variant.h"
#include "host/ModulInfoPanel.h"
#include "linux/SettingsFolder.h"

namespace {

/// An address at which no module answers.
constexpr std::uint8_t unusedAddress = 7;
std::uint8_t address = 192;

/// Left to the host by the page. Here it reads the identification of the module.
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

  /// Reads a module, then transfers parameters as the page does, and records the activities.
  void transferToModule() {
    panel_.bringUp();
    panel_.read();
    QObject::connect(&panel_, &ModulInfoPanel::ModulActive,
                     [this](int status) { statuses.push_back(status); });
    transfer(panel_.control());
    statusText = toUtf8(toText(panel_.control().get_StatusString(), {}));
  }

  std::vector<int> statuses;
  std::string statusText;

 private:
  ModulInfoPanel panel_{nullptr, std::filesystem::path(TESSARA_MODULES) / "tessara-tm-151.json"};
};

TEST_F(HostSnippets, TheShortestHostShowsThePanel) {
  QMainWindow window;
#include "hosts_1.inc"
  window.setCentralWidget(panel);
  window.show();
  EXPECT_TRUE(panel->isVisible());
}

TEST_F(HostSnippets, TheBeginningAndEndOfATransferAreReported) {
  transferToModule();
  EXPECT_EQ(statuses, (std::vector<int>{1, 0}));
}

TEST_F(HostSnippets, AFailedTransferReportsTheCause) {
  address = unusedAddress;
  transferToModule();
  EXPECT_EQ(statuses, (std::vector<int>{1, 3}));
  EXPECT_NE(statusText.find("no answer"), std::string::npos) << statusText;
}

}  // namespace
}  // namespace tessara::testing
