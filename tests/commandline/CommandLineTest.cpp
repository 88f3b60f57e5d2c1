#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "commandline/CommandLine.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<const char*> argumentsOf(const std::vector<std::string>& words) {
  std::vector<const char*> arguments{"program"};
  for (const std::string& word : words) arguments.push_back(word.c_str());
  return arguments;
}

CommandRequest parsed(const std::vector<std::string>& words) {
  const auto arguments = argumentsOf(words);
  return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

std::variant<ExitCode, PanelRequest> parsedPanel(const std::vector<std::string>& words) {
  const auto arguments = argumentsOf(words);
  return parsePanelCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

/// What is printed on standard error about wrong usage.
std::string complaintAbout(const std::vector<std::string>& words) {
  ::testing::internal::CaptureStderr();
  const CommandRequest request = parsed(words);
  std::string complaint = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::get<ExitCode>(request), ExitCode::WrongUsage);
  return complaint;
}

TEST(CommandLine, ReadsAModuleAtAPort) {
  const auto request = std::get<ReadRequest>(parsed(
      {"read", "--port", "com3", "--baudrate", "300", "--address", "0", "--language", "11"}));
  EXPECT_EQ(request.module.comPort, 3);
  EXPECT_EQ(request.module.baudrate, 300);
  EXPECT_EQ(request.module.address, 0);
  EXPECT_EQ(request.module.language, 11);
  EXPECT_FALSE(request.json);
  EXPECT_FALSE(request.trace);
}

TEST(CommandLine, LeavesOpenWhatIsNotNamed) {
  const auto request = std::get<ReadRequest>(parsed({"read", "--port", "nfc", "--json"}));
  EXPECT_EQ(request.module.comPort, 999);
  EXPECT_EQ(request.module.moduleFile, "");
  EXPECT_EQ(request.module.baudrate, std::nullopt);
  EXPECT_EQ(request.module.address, std::nullopt);
  EXPECT_EQ(request.module.language, std::nullopt);
  EXPECT_TRUE(request.json);
}

TEST(CommandLine, KnowsEveryOtherCommand) {
  EXPECT_TRUE(std::get<PortsRequest>(parsed({"ports", "--json"})).json);
  EXPECT_TRUE(std::get<ServeRequest>(parsed({"serve", "--reentrant"})).reentrant);
  EXPECT_TRUE(std::get<ServeRequest>(parsed({"serve", "--trace"})).trace);
  EXPECT_THAT(std::get<CatalogueCheckRequest>(parsed({"catalogue", "check", "a", "b"})).files,
              ElementsAre("a", "b"));
  EXPECT_THAT(std::get<LanguageCheckRequest>(parsed({"language", "check", "a"})).files,
              ElementsAre("a"));
  const auto build = std::get<LanguageBuildRequest>(parsed({"language", "build", "a", "b"}));
  EXPECT_EQ(build.source, "a");
  EXPECT_EQ(build.result, "b");
  EXPECT_TRUE(std::holds_alternative<SettingsListRequest>(parsed({"settings", "list"})));
  EXPECT_EQ(std::get<SettingsGetRequest>(parsed({"settings", "get", "Logo"})).name, "Logo");
  const auto set = std::get<SettingsSetRequest>(parsed({"settings", "set", "Logo", "--", "-x"}));
  EXPECT_EQ(set.name, "Logo");
  EXPECT_EQ(set.text, "-x");
  EXPECT_EQ(std::get<SettingsSetRequest>(parsed({"settings", "set", "Logo", ""})).text, "");
}

TEST(CommandLine, ExplainsWhichAddressesAndRatesThereAre) {
  const std::vector<std::string> read{"read", "--port", "COM1"};
  const auto with = [&read](const std::string& option, const std::string& value) {
    std::vector<std::string> words = read;
    words.insert(words.end(), {option, value});
    return complaintAbout(words);
  };
  EXPECT_THAT(with("--address", "248"),
              HasSubstr("--address: 248 is not an address: Modbus and NFC take 1 to 247, HART "
                        "takes 0 to 63"));
  EXPECT_THAT(with("--address", "12x"), HasSubstr("--address: 12x is not a whole number"));
  EXPECT_THAT(with("--baudrate", "299"),
              HasSubstr("--baudrate: 299 bit/s is too low: below 300 bit/s a read would take "
                        "minutes"));
  EXPECT_THAT(with("--baudrate", "99999999999"), HasSubstr("is not a whole number"));
  EXPECT_THAT(with("--language", "12"), HasSubstr("--language: 12 is not within 0 to 11"));
}

TEST(CommandLine, ComplainsOfAMissingCommandAndOfAMissingModule) {
  EXPECT_THAT(complaintAbout({}), HasSubstr("A command is required"));
  EXPECT_THAT(complaintAbout({"read"}), HasSubstr("required"));
  EXPECT_THAT(complaintAbout({"read", "--port", "COM0"}), HasSubstr("neither COM<n> nor NFC"));
}

TEST(CommandLine, EndsWithTheHelp) {
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(std::get<ExitCode>(parsed({"read", "--help"})), ExitCode::Done);
  EXPECT_THAT(::testing::internal::GetCapturedStdout(), HasSubstr("--address N"));
}

TEST(CommandLine, OfThePanelMayNameNoModule) {
  const auto request = std::get<PanelRequest>(parsedPanel({}));
  EXPECT_FALSE(request.namesModule());
  EXPECT_FALSE(request.isUnattended());
  EXPECT_EQ(request.module.baudrate, std::nullopt);
}

TEST(CommandLine, OfThePanelNamesModuleAndOutputs) {
  const auto request = std::get<PanelRequest>(
      parsedPanel({"--port", "COM3", "--read", "--screenshot", "a.png", "--report", "a.pdf"}));
  EXPECT_TRUE(request.namesModule());
  EXPECT_TRUE(request.reads);
  EXPECT_TRUE(request.isUnattended());
  EXPECT_EQ(request.screenshot, "a.png");
  EXPECT_EQ(request.report, "a.pdf");
}

TEST(CommandLine, OfThePanelShowsARecordOrReadsAModule) {
  ::testing::internal::CaptureStderr();
  const auto request = parsedPanel({"--record", "/dev/null", "--read"});
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("--record"));
  EXPECT_EQ(std::get<ExitCode>(request), ExitCode::WrongUsage);
}

}  // namespace
}  // namespace tessara::testing
