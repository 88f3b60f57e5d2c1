#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

#include "localisation/Language.h"

namespace tessara {

/// What this host says itself, beside the texts that the control has in its tables. A name with a
/// number of arguments behind it has that many places to fill.
enum class Word : std::uint8_t {
  // Menus, each with its access key.
  MenuFile,
  MenuModule,
  MenuView,
  MenuHelp,
  SaveRecord,
  OpenRecord,
  PrintRecord,
  SavePdf,
  CopyText,
  Quit,
  ShowEvents,
  // The window.
  Title,
  ActivityReady,
  ActivityBusy,
  ActivityFailed,
  ActivityScanning,
  ActivityNoInterface,
  ActivityHost,
  NoInterface,
  NothingToStore,
  NoModule,
  SavedAs1,
  CopiedText,
  HelpInBrowser,
  NoHelpProgram,
  // The record.
  RecordTitle,
  RecordNotLive2,
  RecordWindow1,
  RecordFiles,
  SectionModule,
  SectionIdentification,
  SectionConnection,
  SectionCatalogue,
  Recorded,
  Path,
  StatusWords,
  StatusLine,
  CatalogueEntry,
  ProductPage,
  Datasheet,
  Leaflet,
  CatalogueUnusable,
  CatalogueNoDevice,
  CatalogueNoVersion,
  CatalogueNewer,
  CatalogueExact,
  CatalogueOlder,
  Page2,
  Close,
  Copy,
  PdfFiles,
  // Events.
  EventsTitle,
  EventTime,
  EventOrigin,
  EventWhat,
  EventResult,
  EventMs,
  EventsSave,
  EventsClear,
  EventsDropped1,
  TextFiles,
  // What is wrong with a file; the first place is always its name.
  FileUnreadable2,
  FileUnwritable2,
  FileTooLarge2,
  NotJson4,
  OtherFormat2,
  NewerVersion3,
  FieldMissing2,
  FieldWrong4,
  KindObject,
  KindText,
  KindTruth,
  KindTime,
  KindNumber2,
  KindOneOf1,
  Count,
};

/// The words of this host in one language.
class HostTexts {
 public:
  enum class Language : std::uint8_t { English, German, Russian, Chinese };

  explicit HostTexts(Language language = Language::English) : language_(language) {}

  /// The words that go with the texts that the control shows: those of its language, German if it
  /// fell back on its own wording, English if there are none in its language or none loaded.
  static HostTexts beside(const LanguageState& state);

  [[nodiscard]] Language language() const { return language_; }
  [[nodiscard]] QString operator()(Word word) const;
  /// The word with its places filled in; each gets its argument as it stands.
  [[nodiscard]] QString operator()(Word word, const QStringList& arguments) const;

 private:
  Language language_;
};

}  // namespace tessara
