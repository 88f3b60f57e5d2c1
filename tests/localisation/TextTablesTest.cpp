#include <gtest/gtest.h>

#include "localisation/ErrorOf.h"
#include "localisation/TextTables.h"

namespace tessara {
namespace {

using testing::errorOf;

template <typename Table>
std::vector<std::u16string> entriesOf(const Table& table) {
  std::vector<std::u16string> entries;
  for (std::size_t i = 0; i < table.size(); ++i) {
    entries.push_back(table[i]);
  }
  return entries;
}

/// `texts`, followed by empty slots up to `slots`.
std::vector<std::u16string> padded(std::vector<std::u16string> texts, std::size_t slots) {
  texts.resize(slots);
  return texts;
}

TextTables defaults() {
  TextTables tables;
  LoadDefaultTexts(tables);
  return tables;
}

TEST(TextTables, StartEmpty) {
  const TextTables tables;
  EXPECT_EQ(tables.AppTitle, u"");
  EXPECT_EQ(entriesOf(tables.TextMainFrame), padded({}, 31));
  EXPECT_EQ(entriesOf(tables.TextModulInfo), padded({}, 31));
  EXPECT_EQ(entriesOf(tables.TextButtons), padded({}, 4));
  EXPECT_EQ(entriesOf(tables.TextStatus), padded({}, 41));
}

TEST(DefaultTexts, TitleIsThatOfTheConfigurationProgram) {
  EXPECT_EQ(defaults().AppTitle, u"MERIDEX_CONF");
}

constexpr const char16_t* introduction =
    u"Konfigurations- und Diagnoseprogramm für Interface Module der TESSARA, VELLUM und KORRIN- "
    u"Reihen";

TEST(DefaultTexts, MainFrameHasTwentySixTexts) {
  EXPECT_EQ(entriesOf(defaults().TextMainFrame),
            padded({u"Konfiguration",
                    u"Modul Parameter",
                    u"Prozesswerte",
                    u"Monitoring",
                    u"Abgleich",
                    u"Information",
                    u"Gerät noch aktiv!",
                    u"Achtung!",
                    u"Keine Verbindung! Weiter mit Offlineparametrierung?",
                    u"Verfügbare Module",
                    u"Fehler Eingabe",
                    u"Fehler laden Geräteliste!",
                    u"Unbekanntes Gerät! Weiter?",
                    u"Unbekannte FW-Version!",
                    u"FW-Version > als bekannte Version! Weiter?",
                    u"FW-Version < als bekannte Version! Weiter?",
                    introduction,
                    u"Offline Konfiguration",
                    u"Quick Setup",
                    u"Expertenmodus",
                    u"Auswahl Programm-Modus",
                    u"Produkt- und Kontaktinformationen",
                    u"Tel.",
                    u"Fax",
                    u"Email",
                    u"Web"},
                   31));
}

TEST(DefaultTexts, ModulInfoHasTwentySixTexts) {
  EXPECT_EQ(entriesOf(defaults().TextModulInfo), padded({u"Adresse",
                                                         u"COM-Port",
                                                         u"Baudrate",
                                                         u"Gerätetyp",
                                                         u"Firmware Version",
                                                         u"Beschreibung",
                                                         u"Seriennummer",
                                                         u"Status",
                                                         u"Parameter aus Modul lesen",
                                                         u"Parameter zum Modul übertragen",
                                                         u"Offline Konfiguration...",
                                                         u"Parameter auf Disk speichern...",
                                                         u"Parameter von Disk laden...",
                                                         u"Lese Daten",
                                                         u"Fehler Verbindung!",
                                                         u"Verbindungsaufbau",
                                                         u"Sprache",
                                                         u"Bitte Anwendung neu starten!",
                                                         u"Konfiguration drucken...",
                                                         u"Hilfe...",
                                                         u"Falscher Modultyp!",
                                                         u"Modul Status",
                                                         u"Kanal Status",
                                                         u"Russisch",
                                                         u"Chinesisch (vereinfacht)",
                                                         u"Japanisch"},
                                                        31));
}

TEST(DefaultTexts, ButtonsHaveOneText) {
  EXPECT_EQ(entriesOf(defaults().TextButtons), padded({u"Abbrechen"}, 4));
}

TEST(DefaultTexts, StatusHasThirtyFiveTexts) {
  EXPECT_EQ(entriesOf(defaults().TextStatus), padded({u"Kein Fehler",
                                                      u"Fehler Kommunikation",
                                                      u"Simulation",
                                                      u"Flash Konfiguration",
                                                      u"Fehler RAM",
                                                      u"Fehler Register",
                                                      u"Fehler Flash Checksumme",
                                                      u"Fehler Parameter Checksumme",
                                                      u"Fehler Eeprom Checksumme",
                                                      u"Stacküberlauf",
                                                      u"Drahtbruch Ausgang",
                                                      u"Fehler Konfiguration",
                                                      u"Fehler Werte Check",
                                                      u"Fehler Referenz Spg.",
                                                      u"Fehler Ausgangswert",
                                                      u"Fehler Versorgungsspg.",
                                                      u"Fehler Sensorstrom",
                                                      u"Fehler ADC",
                                                      u"Mess-System",
                                                      u"Fehler Watchdog",
                                                      u"Bereichsüberschreitung",
                                                      u"Bereichsunterschreitung",
                                                      u"Kurzschluss",
                                                      u"Drahtbruch Sensor",
                                                      u"Ungültige Messung",
                                                      u"Fehler Kaltstelle",
                                                      u"Fehler Bürde",
                                                      u"Interne Temperatur zu hoch",
                                                      u"Interne Temperatur zu niedrig",
                                                      u"Fehler Dip - Schalter",
                                                      u"Fehler Konfiguration Dip-Schalter",
                                                      u"Fehler Konfiguration SW",
                                                      u"DIP-Konfiguration aktiv",
                                                      u"Begrenzend",
                                                      u"Fehler Monitoring System"},
                                                     41));
}

template <typename Table>
void fillWith(Table& table, const std::u16string& text) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    table[i] = text;
  }
}

TEST(DefaultTexts, ReplaceTheirOwnRangeAndLeaveTheSpareSlots) {
  TextTables tables;
  tables.AppTitle = u"kept";
  fillWith(tables.TextMainFrame, u"kept");
  fillWith(tables.TextModulInfo, u"kept");
  fillWith(tables.TextButtons, u"kept");
  fillWith(tables.TextStatus, u"kept");

  LoadDefaultTexts(tables);

  EXPECT_EQ(tables.AppTitle, u"MERIDEX_CONF");
  EXPECT_EQ(tables.TextMainFrame[25], u"Web");
  EXPECT_EQ(tables.TextMainFrame[26], u"kept");
  EXPECT_EQ(tables.TextMainFrame[30], u"kept");
  EXPECT_EQ(tables.TextModulInfo[25], u"Japanisch");
  EXPECT_EQ(tables.TextModulInfo[26], u"kept");
  EXPECT_EQ(tables.TextModulInfo[30], u"kept");
  EXPECT_EQ(tables.TextButtons[0], u"Abbrechen");
  EXPECT_EQ(tables.TextButtons[1], u"kept");
  EXPECT_EQ(tables.TextButtons[3], u"kept");
  EXPECT_EQ(tables.TextStatus[34], u"Fehler Monitoring System");
  EXPECT_EQ(tables.TextStatus[35], u"kept");
  EXPECT_EQ(tables.TextStatus[40], u"kept");
}

/// The slot past the end of `table`, read and written, is a subscript error that names it.
template <typename Table>
void expectEnd(Table& table, std::size_t slots, const std::string& name) {
  EXPECT_EQ(table.size(), slots);
  EXPECT_EQ(table[slots - 1], u"");
  const auto reading = errorOf([&] { (void)std::as_const(table)[slots]; });
  const auto writing = errorOf([&] { table[slots] = u"lost"; });
  for (const auto& error : {reading, writing}) {
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::Subscript);
    EXPECT_NE(std::string(error->what()).find(name), std::string::npos);
  }
}

TEST(TextTables, AnEntryPastTheEndIsASubscriptError) {
  TextTables tables;
  expectEnd(tables.TextMainFrame, 31, "TextMainFrame");
  expectEnd(tables.TextModulInfo, 31, "TextModulInfo");
  expectEnd(tables.TextButtons, 4, "TextButtons");
  expectEnd(tables.TextStatus, 41, "TextStatus");
}

}  // namespace
}  // namespace tessara
