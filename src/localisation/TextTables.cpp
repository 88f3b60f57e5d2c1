#include "localisation/TextTables.h"

namespace tessara {
namespace {

constexpr std::u16string_view title = u"MERIDEX_CONF";

constexpr std::array<std::u16string_view, 26> mainFrame{
    u"Konfiguration",
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
    u"Konfigurations- und Diagnoseprogramm für Interface Module der TESSARA, VELLUM und KORRIN- "
    u"Reihen",
    u"Offline Konfiguration",
    u"Quick Setup",
    u"Expertenmodus",
    u"Auswahl Programm-Modus",
    u"Produkt- und Kontaktinformationen",
    u"Tel.",
    u"Fax",
    u"Email",
    u"Web",
};

constexpr std::array<std::u16string_view, 26> modulInfo{
    u"Adresse",
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
    u"Japanisch",
};

constexpr std::array<std::u16string_view, 35> status{
    u"Kein Fehler",
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
    u"Fehler Monitoring System",
};

constexpr std::array<std::u16string_view, 1> buttons{
    u"Abbrechen",
};

template <std::size_t Slots, std::size_t Defaults>
void fill(TextTable<Slots>& table, const std::array<std::u16string_view, Defaults>& defaults) {
  static_assert(Defaults <= Slots);
  for (std::size_t i = 0; i < Defaults; ++i) {
    table[i] = defaults[i];
  }
}

}  // namespace

void LoadDefaultTexts(TextTables& tables) {
  tables.AppTitle = title;
  fill(tables.TextMainFrame, mainFrame);
  fill(tables.TextModulInfo, modulInfo);
  fill(tables.TextStatus, status);
  fill(tables.TextButtons, buttons);
}

}  // namespace tessara
