#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "CallLog.h"
#include "FakeDevice.h"
#include "platform/Platform.h"

namespace tessara::testing {

/// Settings in memory: "SetValue COM Port=3" in the log for each write.
class FakeRegistryHelper : public RegistryHelper {
 public:
  explicit FakeRegistryHelper(CallLog& log, std::map<std::u16string, Variant>& values)
      : log_(log), values_(values) {}
  ~FakeRegistryHelper() override { log_.add("release RegistryHelper"); }

  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 1; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return 2; }
  void SetValue(std::int32_t hive, const std::u16string& key, const std::u16string& name,
                const Variant& value, std::int32_t valueType) override;
  /// Values are kept as "key|name"; each read is logged as "GetValue key|name".
  [[nodiscard]] Variant GetValue(std::int32_t hive, const std::u16string& key,
                                 const std::u16string& name) override;

 private:
  CallLog& log_;
  std::map<std::u16string, Variant>& values_;
};

/// Turns and time that only count: "yield" and "sleep 100" in the log. Timers tick when told.
class FakeEventLoop : public EventLoop {
 public:
  explicit FakeEventLoop(CallLog& log) : log_(log) {}

  void yield() override;
  void sleep(std::chrono::milliseconds duration) override;
  std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds interval,
                                             std::function<void()> tick) override;
  std::unique_ptr<ModalRun> createModalRun() override;

  /// What a person does while a modal form is open: "modal run" and "modal end" in the log. A form
  /// that is still open afterwards finds that the program quits.
  std::function<void()> onModalRun = [] {};
  /// Runs inside every yield.
  std::function<void()> onYield = [] {};
  /// The last timer's handler, interval and state.
  std::function<void()> tick;
  std::chrono::milliseconds interval{0};
  bool timerEnabled = false;

 private:
  CallLog& log_;
};

class FakeLocale : public Locale {
 public:
  [[nodiscard]] std::u16string decimalSeparator() const override { return separator; }
  [[nodiscard]] std::int32_t countryCodeSize() const override {
    return static_cast<std::int32_t>(country.size());
  }
  [[nodiscard]] std::optional<std::u16string> countryCode(std::int32_t size) const override {
    return country.substr(0, static_cast<std::size_t>(size));
  }

  std::u16string separator = u".";
  std::u16string country;
};

class FakeFileSystem : public FileSystem {
 public:
  FakeFileSystem(CallLog& log, std::set<std::u16string>& files) : log_(log), files_(files) {}
  ~FakeFileSystem() override { log_.add("release FileSystem"); }
  [[nodiscard]] bool FileExists(const std::u16string& path) const override;
  /// Files that exist are those of the set and those on disk.
  [[nodiscard]] std::u16string BuildPath(const std::u16string& path,
                                         const std::u16string& name) const override;

 private:
  CallLog& log_;
  std::set<std::u16string>& files_;
};

/// Message boxes that are answered at once: "Show 16 Title: Text" in the log.
class FakeMessageHelper : public MessageHelper {
 public:
  FakeMessageHelper(CallLog& log, std::int32_t& answer) : log_(log), answer_(answer) {}
  ~FakeMessageHelper() override { log_.add("release MessageHelper"); }
  std::int32_t Show(const std::u16string& text, MessageStyle style,
                    const std::u16string& title) override;

 private:
  CallLog& log_;
  std::int32_t& answer_;
};

/// The serial-port key of the registry: pairs of device name and port name.
class FakeRegistryApi : public RegistryApi {
 public:
  std::int32_t RegOpenKeyExA(std::int32_t hive, const std::string& subKey, std::uint32_t options,
                             std::uint32_t access, RegistryKey& key) override;
  std::int32_t RegEnumValueA(RegistryKey key, std::uint32_t index, std::string& name,
                             std::uint32_t& length) override;
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& valueName, std::uint32_t& type,
                                std::string* data, std::uint32_t& size) override;
  std::int32_t RegCloseKey(RegistryKey key) override;

  std::vector<std::pair<std::string, std::string>> ports;
};

/// The USB NFC reader's library: statuses and replies as ordered.
class FakeNfcReaderLibrary : public NfcReaderLibrary {
 public:
  explicit FakeNfcReaderLibrary(CallLog& log) : log_(log) {}
  std::int32_t CR95HFDLL_USBconnect() override;
  std::int32_t CR95HFDll_Echo(std::string& reply) override;
  std::int32_t CR95HFDLL_getMCUrev(std::string& reply) override;

  std::int32_t connectStatus = 1;
  std::int32_t echoStatus = 0;
  std::int32_t revisionStatus = 0;
  std::string revisionReply = "000301040F";
  /// Throws in the first call, as a missing library does.
  bool missing = false;

 private:
  CallLog& log_;
};

/// Pictures that load, or do not: "load /app/logo.png" in the log.
class FakePictureLoader : public PictureLoader {
 public:
  explicit FakePictureLoader(CallLog& log) : log_(log) {}
  void load(const std::u16string& path) override;

  bool broken = false;

 private:
  CallLog& log_;
};

/// Opens nothing: "ShellExecuteA 0 Open /opt/tessara\Help_001.chm () /opt/tessara 1" in the log.
class FakeShell : public Shell {
 public:
  explicit FakeShell(CallLog& log) : log_(log) {}
  std::int32_t ShellExecuteA(WindowHandle window, const std::u16string& operation,
                             const std::u16string& file, const std::u16string& parameters,
                             const std::u16string& folder, std::int32_t showCommand) override;

  std::int32_t result = 42;

 private:
  CallLog& log_;
};

/// A world of fakes around a control, all writing into one log.
class FakePlatform : public Platform {
 public:
  FakePlatform();

  std::shared_ptr<tessara::RegistryHelper> createRegistryHelper() override;
  std::shared_ptr<tessara::BitFieldHelper> createBitFieldHelper() override;
  std::shared_ptr<tessara::ModbusCommObject> createModbusCommObject() override;
  std::shared_ptr<tessara::NfcCommObject> createNfcCommObject() override;
  std::shared_ptr<tessara::HartCommObject> createHartCommObject() override;
  std::shared_ptr<tessara::FileSystem> createFileSystem() override;
  std::shared_ptr<tessara::MessageHelper> createMessageHelper() override;
  std::unique_ptr<XmlTree> createXmlTree() override { return xmlTree(); }
  EventLoop& eventLoop() override { return loop; }
  Locale& locale() override { return systemLocale; }
  RegistryApi& registryApi() override { return serialKey; }
  NfcReaderLibrary& nfcReaderLibrary() override { return readerLibrary; }
  PictureLoader& pictureLoader() override { return pictures; }
  Shell& shell() override { return programs; }
  [[nodiscard]] std::u16string appPath() const override { return programFolder; }

  CallLog log;
  FakeDevice device{log};
  FakeEventLoop loop{log};
  FakeLocale systemLocale;
  FakeRegistryApi serialKey;
  FakeNfcReaderLibrary readerLibrary{log};
  FakePictureLoader pictures{log};
  FakeShell programs{log};
  std::map<std::u16string, Variant> settings;
  std::set<std::u16string> files;
  std::int32_t messageAnswer = 1;
  std::u16string programFolder = u"/opt/tessara";
  /// Makes the tree of each catalogue lookup.
  std::function<std::unique_ptr<XmlTree>()> xmlTree;
  /// The name of an object whose creation fails; empty for none.
  std::string failingCreation;

 private:
  void created(const std::string& name);
};

}  // namespace tessara::testing
