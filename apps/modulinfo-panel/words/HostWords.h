#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

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
  /// No text, but the pattern by which QLocale writes a moment with its time zone.
  Moment,
  /// A caption and what stands behind it.
  Captioned2,
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

inline constexpr auto wordCount = static_cast<std::size_t>(Word::Count);

/// What one language says for each Word, in their order. Each language has a file of its own.
using HostWords = std::array<std::u16string_view, wordCount>;

/// A line of such a file.
struct WordLine {
  Word word = Word::Count;
  std::u16string_view text;
};

/// The lines as words; where one is missing, empty or out of order, the file does not compile.
constexpr HostWords inOrder(const std::array<WordLine, wordCount>& lines) {
  HostWords words;
  for (std::size_t i = 0; i < wordCount; ++i) {
    if (lines[i].word != static_cast<Word>(i) || lines[i].text.empty()) {
      throw std::logic_error("a word is missing or out of order");
    }
    words[i] = lines[i].text;
  }
  return words;
}

extern const HostWords chineseWords;
extern const HostWords englishWords;
extern const HostWords frenchWords;
extern const HostWords germanWords;
extern const HostWords italianWords;
extern const HostWords japaneseWords;
extern const HostWords polishWords;
extern const HostWords portugueseWords;
extern const HostWords russianWords;
extern const HostWords spanishWords;
extern const HostWords turkishWords;

}  // namespace tessara
