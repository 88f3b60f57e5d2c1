#include "localisation/LanguageSections.h"

namespace tessara {
namespace {

std::u16string& titleEntry(TextTables& tables, std::size_t /*index*/) {
  return tables.AppTitle;
}

template <auto Table>
std::u16string& tableEntry(TextTables& tables, std::size_t index) {
  return (tables.*Table)[index];
}

}  // namespace

constexpr std::array<LanguageSection, 5> languageSections{{
    {titleHeader, 1, titleEntry},
    {u"[MainFrame]", decltype(TextTables::TextMainFrame)::size(),
     tableEntry<&TextTables::TextMainFrame>},
    {u"[ModulInfo]", decltype(TextTables::TextModulInfo)::size(),
     tableEntry<&TextTables::TextModulInfo>},
    {u"[Buttons]", decltype(TextTables::TextButtons)::size(), tableEntry<&TextTables::TextButtons>},
    {u"[Messages]", decltype(TextTables::TextStatus)::size(), tableEntry<&TextTables::TextStatus>},
}};

const LanguageSection* findLanguageSection(std::u16string_view line) {
  for (const auto& section : languageSections) {
    if (section.header == line) {
      return &section;
    }
  }
  return nullptr;
}

}  // namespace tessara
