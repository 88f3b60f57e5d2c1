#include <chrono>
#include <csignal>
#include <thread>

#include <gmock/gmock.h>
#include <sys/resource.h>
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

TEST_F(SettingsStoreTest, ReadsNothingWithoutAFile) {
  EXPECT_EQ(store.value("Settings/Language"), std::nullopt);
  EXPECT_THAT(store.values("Settings"), IsEmpty());
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
  EXPECT_THAT(store.values("Settings"),
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
  EXPECT_THAT(store.values("Ports"), ElementsAre(Pair("COM9/Device", "/dev/pts/5")));
  EXPECT_THAT(store.values("Settings"), ElementsAre(Pair("Language", "2")));
}

TEST_F(SettingsStoreTest, KeepsWhatAPersonWroteByHand) {
  put(userFile(),
      "; of the test bench\n[Ports]\n# the red cable\nCOM9\\Name=\\Device\\Silabser9\n"
      "Other=@ByteArray(\\x1\\0) ; why\n[Settings]\nCOM%20Port=3\n; the end\n");
  store.setValue("Settings/COM Port", "9");
  EXPECT_EQ(bytesOf(userFile()),
            "[Ports]\n; of the test bench\n# the red cable\nCOM9\\Name=\\Device\\Silabser9\n"
            "Other=@ByteArray(\\x1\\0) ; why\n\n[Settings]\nCOM%20Port=9\n; the end\n");
}

TEST_F(SettingsStoreTest, RefusesALineBreakInAValue) {
  put(userFile(), "[Settings]\nLogo=a.png\n");
  EXPECT_THAT(errorOf([&] { store.setValue("Settings/Logo", "a\nb"); }),
              HasSubstr("one line of text"));
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nLogo=a.png\n");
}

/// A file that is no settings file, and what is said of it.
struct Broken {
  const char* name;
  std::string bytes;
  const char* fault;

  friend void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.name; }
};

class BrokenSettings : public SettingsStoreTest, public ::testing::WithParamInterface<Broken> {};

TEST_P(BrokenSettings, AreNamedAndLeftAlone) {
  put(userFile(), GetParam().bytes);
  const auto named = AllOf(HasSubstr(userFile().string()), HasSubstr(GetParam().fault));
  EXPECT_THAT(errorOf([&] { static_cast<void>(store.value("Settings/Language")); }), named);
  EXPECT_THAT(errorOf([&] { static_cast<void>(store.values("Settings")); }), named);
  EXPECT_THAT(errorOf([&] { store.setValue("Settings/Language", "2"); }), named);
  EXPECT_THAT(errorOf([&] { store.remove("Settings/Language"); }), named);
  EXPECT_EQ(bytesOf(userFile()), GetParam().bytes);
}

TEST_P(BrokenSettings, AreNamedAlsoWhereTheyAreSystemWide) {
  put(systemFile(), GetParam().bytes);
  EXPECT_THAT(errorOf([&] { static_cast<void>(store.value("Settings/Language")); }),
              AllOf(HasSubstr(systemFile().string()), HasSubstr(GetParam().fault)));
}

INSTANTIATE_TEST_SUITE_P(
    EachKind, BrokenSettings,
    ::testing::Values(
        Broken{"NoPair", "[Settings]\nLanguage=2\nrubbish\n", "line 3: \"rubbish\" is neither"},
        Broken{"NoName", "[Settings]\n=2\n", "line 2: \"=2\" is neither"},
        Broken{"OpenGroup", "[Settings\nLanguage=2\n", "line 1: \"[Settings\" opens a group"},
        Broken{"NoGroupName", "[ ]\nLanguage=2\n", "line 1: a group without a name"},
        Broken{"Zero", std::string("[Settings]\nA=\0\n", 15), "line 2: this is no text in UTF-8"},
        Broken{"Picture", "\x89PNG\r\n\x1a\n", "line 1: this is no text in UTF-8"}),
    [](const auto& broken) { return broken.param.name; });

TEST_F(SettingsStoreTest, NamesAValueThatIsNoText) {
  const std::string bytes = "[Settings]\nLanguage=@Variant(\\0\\0)\nLogo=\"a.png\n";
  put(userFile(), bytes);
  EXPECT_THAT(errorOf([&] { static_cast<void>(store.value("Settings/Language")); }),
              AllOf(HasSubstr(userFile().string()), HasSubstr("Settings/Language"),
                    HasSubstr("neither a text nor a number")));
  EXPECT_THAT(errorOf([&] { static_cast<void>(store.value("Settings/Logo")); }),
              HasSubstr("does not close it"));
  EXPECT_EQ(bytesOf(userFile()), bytes);
}

TEST_F(SettingsStoreTest, TellsThatItsFolderCannotBeMade) {
  put(folder() / "user" / "Orvane", "a file where a folder should be");
  EXPECT_THAT(errorOf([&] { store.setValue("Settings/Language", "2"); }),
              AllOf(HasSubstr(userFile().string()), HasSubstr("cannot be written")));
  EXPECT_EQ(store.value("Settings/Language"), std::nullopt);
}

TEST_F(SettingsStoreTest, TellsThatItsFileIsAFolder) {
  std::filesystem::create_directories(userFile());
  EXPECT_THAT(errorOf([&] { store.setValue("Settings/Language", "2"); }),
              HasSubstr(userFile().string()));
}

/// While it lives, no file of this process can become longer than that.
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
    EXPECT_THAT(errorOf([&] { store.setValue("Settings/Language", "2"); }),
                AllOf(HasSubstr(userFile().string()), HasSubstr("could not be written")));
    EXPECT_EQ(store.value("Settings/Language"), "1");
  }
  EXPECT_TRUE(bytesOf(userFile()) == bytes);
  store.setValue("Settings/Language", "3");
  EXPECT_EQ(store.value("Settings/Language"), "3");
}

TEST_F(SettingsStoreTest, IsNotHeldUpByAnEmptyLockFile) {
  put(userFile().string() + ".lock", "");
  const auto start = std::chrono::steady_clock::now();
  store.setValue("Settings/Language", "2");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nLanguage=2\n");
}

TEST_F(SettingsStoreTest, IsNotHeldUpByTheLocksOfLockRemovalsThatDied) {
  const std::string ofADeadProgram = "4194305\ntest_linux\n\n\n\n";
  put(userFile().string() + ".lock", ofADeadProgram);
  put(userFile().string() + ".lock.rmlock", ofADeadProgram);
  put(userFile().string() + ".lock.rmlock.rmlock", "");
  const auto start = std::chrono::steady_clock::now();
  store.setValue("Settings/Language", "2");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nLanguage=2\n");
}

/// Runs `work` in a process of its own and gives its id.
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
    for (int i = 0; i < 30; ++i) {
      SettingsStore().setValue("Settings/" + prefix + std::to_string(i), std::to_string(i));
    }
  };
  const pid_t other = inProcess([&] { writer("a"); });
  writer("b");
  int status = 0;
  ASSERT_EQ(::waitpid(other, &status, 0), other);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(store.values("Settings").size(), 60U);
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
  const auto start = std::chrono::steady_clock::now();
  store.setValue("Settings/Language", "2");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(store.value("Settings/Language"), "2");
}

}  // namespace
}  // namespace tessara::testing
