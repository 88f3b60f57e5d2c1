#include <chrono>
#include <csignal>
#include <functional>
#include <iterator>
#include <thread>
#include <utility>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "SettingsFolder.h"
#include "base/RunTimeError.h"
#include "linux/SettingsStore.h"

namespace tessara::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

class SettingsStoreTest : public SettingsFolder {
 protected:
  SettingsStore store;
};

/// The number and message of the RunTimeError that `action` ends in.
std::pair<ErrorNumber, std::string> failureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return {error.number(), error.what()};
  }
  return {};
}

/// That a file cannot be read or written, with these words among the message.
template <class... Words>
auto isFileFailure(const Words&... words) {
  return Pair(ErrorNumber::FileAccess, AllOf(HasSubstr(words)...));
}

TEST_F(SettingsStoreTest, ReadsNothingWithoutAFile) {
  EXPECT_EQ(store.value("Settings/Language"), std::nullopt);
  EXPECT_THAT(store.group("Settings").values, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(userFile()));
}

TEST_F(SettingsStoreTest, LiesWhereLinuxUsersLookForIt) {
  EXPECT_EQ(store.path(), userFile());
  store.setValue("Settings/Language", "2");
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nLanguage=2\n");
}

TEST_F(SettingsStoreTest, GivesBackWhatWasWritten) {
  for (const std::string text : {"2", "", "a b", " led by a blank", "ends in one ", "a, b; c = d",
                                 R"("quoted")", R"(\\x\)", R"(\Device\Silabser9)", R"(ends in \")",
                                 "@home", "@@", "Gerät 測定", R"(C:\new\table)", "#1"}) {
    store.setValue("Settings/Logo", text);
    EXPECT_EQ(SettingsStore().value("Settings/Logo"), text);
  }
}

TEST_F(SettingsStoreTest, PrefersTheUsersFileOverTheSystemWideOne) {
  put(systemFile(), "[Settings]\nLanguage=3\nLogo=maker.png\n");
  EXPECT_EQ(store.value("Settings/Language"), "3");
  store.setValue("Settings/Language", "2");
  EXPECT_EQ(store.value("Settings/Language"), "2");
  EXPECT_EQ(store.value("Settings/Logo"), "maker.png");
  EXPECT_THAT(store.group("Settings").values,
              ElementsAre(Pair("Language", "2"), Pair("Logo", "maker.png")));
  EXPECT_EQ(bytesOf(systemFile()), "[Settings]\nLanguage=3\nLogo=maker.png\n");
}

TEST_F(SettingsStoreTest, RemovesOnlyTheUsersValue) {
  put(systemFile(), "[Settings]\nLanguage=3\n");
  store.remove("Settings/Language");
  EXPECT_FALSE(std::filesystem::exists(userFile()));
  store.setValue("Settings/Language", "2");
  store.remove("Settings/Language");
  EXPECT_EQ(store.value("Settings/Language"), "3");
}

TEST_F(SettingsStoreTest, SeesWhatAnotherProgramWrites) {
  store.setValue("Settings/Language", "2");
  put(userFile(), "[Settings]\nLanguage=11\n");
  EXPECT_EQ(store.value("Settings/Language"), "11");
}

TEST_F(SettingsStoreTest, ListsTheValuesOfOneGroup) {
  put(userFile(), "Loose=1\n[Ports]\nCOM9\\Device=/dev/pts/5\n[Settings]\nLanguage=2\n");
  EXPECT_THAT(store.group("Ports").values, ElementsAre(Pair("COM9/Device", "/dev/pts/5")));
  EXPECT_THAT(store.group("Settings").values, ElementsAre(Pair("Language", "2")));
}

TEST_F(SettingsStoreTest, LooksIntoTheFilesOfTheOrganisationToo) {
  const auto common = [&](const char* scope) { return folder() / scope / "Orvane.ini"; };
  put(common("system"), "[Settings]\nLanguage=5\nLogo=system.png\n");
  EXPECT_EQ(store.value("Settings/Language"), "5");
  put(systemFile(), "[Settings]\nLanguage=4\n");
  EXPECT_EQ(store.value("Settings/Language"), "4");
  put(common("user"), "[Settings]\nLanguage=3\n");
  EXPECT_EQ(store.value("Settings/Language"), "3");
  store.setValue("Settings/Language", "2");
  EXPECT_EQ(store.value("Settings/Language"), "2");
  EXPECT_EQ(store.value("Settings/Logo"), "system.png");
  EXPECT_EQ(bytesOf(common("user")), "[Settings]\nLanguage=3\n");
}

TEST_F(SettingsStoreTest, LooksIntoTheSystemWideFoldersInTheirOrder) {
  ::setenv("XDG_CONFIG_DIRS",
           ((folder() / "first").string() + "::" + (folder() / "second").string()).c_str(), 1);
  put(folder() / "second" / "Orvane" / "Tessara-Conf.ini", "[Settings]\nLanguage=2\nIcon=b\n");
  put(folder() / "first" / "Orvane" / "Tessara-Conf.ini", "[Settings]\nLanguage=1\n");
  EXPECT_EQ(store.value("Settings/Language"), "1");
  EXPECT_EQ(store.value("Settings/Icon"), "b");
}

TEST_F(SettingsStoreTest, KeepsWhatAPersonWroteByHand) {
  put(userFile(),
      "; of the test bench\n[Ports]\n# the red cable\nCOM9\\Name=\\Device\\Silabser9\n"
      "Other=@ByteArray(\\x1\\0) ; why\n[Settings]\nCOM%20Port=3 ; as always\n; the end\n");
  store.setValue("Settings/COM Port", "9");
  EXPECT_EQ(bytesOf(userFile()),
            "; of the test bench\n[Ports]\n# the red cable\nCOM9\\Name=\\Device\\Silabser9\n"
            "Other=@ByteArray(\\x1\\0) ; why\n\n[Settings]\nCOM%20Port=9 ; as always\n; the end\n");
}

TEST_F(SettingsStoreTest, WritesToTheFileBehindALink) {
  const auto target = folder() / "dotfiles" / "conf.ini";
  put(target, "[Settings]\nLanguage=1\n");
  std::filesystem::create_directories(userFile().parent_path());
  std::filesystem::create_symlink(target, userFile());
  store.setValue("Settings/Language", "2");
  EXPECT_EQ(bytesOf(target), "[Settings]\nLanguage=2\n");
  EXPECT_TRUE(std::filesystem::is_symlink(userFile()));
}

TEST_F(SettingsStoreTest, RefusesALineBreakInAValue) {
  put(userFile(), "[Settings]\nLogo=a.png\n");
  EXPECT_THAT(failureOf([&] { store.setValue("Settings/Logo", "a\nb"); }),
              Pair(ErrorNumber::InvalidCall, HasSubstr("one line of text")));
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nLogo=a.png\n");
}

/// A file that is not a settings file, and what the message says.
struct Broken {
  const char* name;
  std::string bytes;
  const char* fault;

  friend void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.name; }
};

class BrokenSettings : public SettingsStoreTest, public ::testing::WithParamInterface<Broken> {};

TEST_P(BrokenSettings, AreNamedAndLeftAlone) {
  put(userFile(), GetParam().bytes);
  const auto named = isFileFailure(userFile().string(), GetParam().fault);
  EXPECT_THAT(failureOf([&] { static_cast<void>(store.value("Settings/Language")); }), named);
  EXPECT_THAT(failureOf([&] { static_cast<void>(store.group("Settings")); }), named);
  EXPECT_THAT(failureOf([&] { store.setValue("Settings/Language", "2"); }), named);
  EXPECT_THAT(failureOf([&] { store.remove("Settings/Language"); }), named);
  EXPECT_EQ(bytesOf(userFile()), GetParam().bytes);
}

TEST_P(BrokenSettings, AreNamedAlsoWhereTheyAreSystemWide) {
  put(systemFile(), GetParam().bytes);
  EXPECT_THAT(failureOf([&] { static_cast<void>(store.value("Settings/Language")); }),
              isFileFailure(systemFile().string(), GetParam().fault));
}

INSTANTIATE_TEST_SUITE_P(
    EachKind, BrokenSettings,
    ::testing::Values(
        Broken{"NoPair", "[Settings]\nLanguage=2\nrubbish\n", "line 3: \"rubbish\" is neither"},
        Broken{"NoName", "[Settings]\n=2\n", "line 2: \"=2\" is neither"},
        Broken{"OpenGroup", "[Settings\nLanguage=2\n", "line 1: \"[Settings\" lacks the closing ]"},
        Broken{"BracketInGroup", "[Set]tings]\n", "line 1: \"[Set]tings]\" has a bracket"},
        Broken{"NoGroupName", "[ ]\nLanguage=2\n", "line 1: a group without a name"},
        Broken{"Zero", std::string("[Settings]\nA=\0\n", 15), "line 2: this is not text in UTF-8"},
        Broken{"Picture", "\x89PNG\r\n\x1a\n", "line 1: this is not text in UTF-8"}),
    [](const auto& broken) { return broken.param.name; });

TEST_F(SettingsStoreTest, NamesAValueThatIsNotText) {
  const std::string bytes =
      "[Settings]\nIcon=i\nLanguage=@Invalid()\nLogo=\"a.png\nCOM%20Port=1, 2\n";
  put(userFile(), bytes);
  const auto read = [&](const char* name) {
    return failureOf([&] { static_cast<void>(store.value(name)); });
  };
  EXPECT_THAT(read("Settings/Language"),
              Pair(ErrorNumber::TypeMismatch,
                   AllOf(HasSubstr(userFile().string()), HasSubstr("Settings/Language"),
                         HasSubstr("@Invalid() is neither text nor a number"))));
  EXPECT_THAT(read("Settings/Logo"),
              Pair(ErrorNumber::TypeMismatch, HasSubstr("does not close it")));
  EXPECT_THAT(read("Settings/COM Port"),
              Pair(ErrorNumber::TypeMismatch, HasSubstr("1, 2 is a list")));
  EXPECT_EQ(bytesOf(userFile()), bytes);

  const SettingsGroup settings = store.group("Settings");
  EXPECT_THAT(settings.values, ElementsAre(Pair("Icon", "i")));
  EXPECT_THAT(settings.unusable, ElementsAre(Pair("COM Port", HasSubstr("a list")),
                                             Pair("Language", HasSubstr("@Invalid()")),
                                             Pair("Logo", HasSubstr("\"a.png"))));
}

TEST_F(SettingsStoreTest, ReportsThatItsFolderCannotBeMade) {
  put(folder() / "user" / "Orvane", "a file where a folder should be");
  EXPECT_THAT(failureOf([&] { store.setValue("Settings/Language", "2"); }),
              isFileFailure(userFile().string(), "cannot be written: Not a directory"));
  EXPECT_EQ(store.value("Settings/Language"), std::nullopt);
}

TEST_F(SettingsStoreTest, ReportsAFileThatIsAFolder) {
  std::filesystem::create_directories(userFile());
  const auto failure = isFileFailure(userFile().string(), "it is not a regular file");
  EXPECT_THAT(failureOf([&] { store.setValue("Settings/Language", "2"); }), failure);
  EXPECT_THAT(failureOf([&] { static_cast<void>(store.value("Settings/Language")); }), failure);
}

TEST_F(SettingsStoreTest, ReportsAPipeInPlaceOfTheFileAndLeavesIt) {
  std::filesystem::create_directories(userFile().parent_path());
  ASSERT_EQ(::mkfifo(userFile().c_str(), 0600), 0);
  const auto failure = isFileFailure("it is not a regular file");
  EXPECT_THAT(failureOf([&] { static_cast<void>(store.value("Settings/Language")); }), failure);
  EXPECT_THAT(failureOf([&] { store.setValue("Settings/Language", "2"); }), failure);
  EXPECT_TRUE(std::filesystem::is_fifo(userFile()));
}

/// While it lives, this process cannot write longer files.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const ::rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  ::rlimit before_{};
  void (*signal_)(int);
};

TEST_F(SettingsStoreTest, KeepsWhatItHoldsIfTheDiskIsFull) {
  const std::string bytes = "[Settings]\nLanguage=1\nLogo=" + std::string(5000, 'x') + ".png\n";
  put(userFile(), bytes);
  {
    const FullDisk disk(4000);
    EXPECT_THAT(failureOf([&] { store.setValue("Settings/Language", "2"); }),
                isFileFailure(userFile().string(), "cannot be written: File too large"));
    EXPECT_EQ(store.value("Settings/Language"), "1");
  }
  EXPECT_TRUE(bytesOf(userFile()) == bytes);
  store.setValue("Settings/Language", "3");
  EXPECT_EQ(store.value("Settings/Language"), "3");
}

/// Runs `work` in a process of its own and returns its id.
template <class Work>
pid_t inProcess(Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    work();
    ::_exit(0);
  }
  return child;
}

TEST_F(SettingsStoreTest, LosesNothingToTwoWriters) {
  const auto writer = [](const std::string& prefix) {
    for (int i = 0; i < 200; ++i) {
      SettingsStore().setValue("Settings/" + prefix + std::to_string(i), std::to_string(i));
    }
  };
  const pid_t other = inProcess([&] { writer("a"); });
  writer("b");
  int status = 0;
  ASSERT_EQ(::waitpid(other, &status, 0), other);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(store.group("Settings").values.size(), 400U);
}

TEST_F(SettingsStoreTest, LosesNothingToAKill) {
  store.setValue("Settings/Logo", "maker.png");
  store.setValue("Settings/Language", "1");
  constexpr int rounds = 200;
  for (int round = 0; round < rounds; ++round) {
    const pid_t writer = inProcess([] {
      for (int i = 0;; ++i) SettingsStore().setValue("Settings/Language", std::to_string(i % 12));
    });
    std::this_thread::sleep_for(std::chrono::microseconds(3000 + 37 * round));
    ::kill(writer, SIGKILL);
    ASSERT_EQ(::waitpid(writer, nullptr, 0), writer);
    EXPECT_EQ(SettingsStore().value("Settings/Logo"), "maker.png");
    EXPECT_THAT(SettingsStore().value("Settings/Language"),
                ::testing::Optional(::testing::MatchesRegex("[0-9]|1[01]")));
  }
  store.setValue("Settings/Language", "2");
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nLogo=maker.png\nLanguage=2\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(userFile().parent_path()), {}), 2);
}

}  // namespace
}  // namespace tessara::testing
