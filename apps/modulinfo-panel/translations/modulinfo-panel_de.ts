<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Das Modul wird angesprochen</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>Das Modul konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Der Status wird laufend gelesen</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>Weder Port noch Lesegerät gefunden</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Arbeit des Hauptprogramms</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Von</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Verworfene ältere Ereignisse: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Speichern …</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Schl&amp;ießen</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Textdateien (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>Protokoll ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>Protokoll &amp;speichern …</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Als &amp;PDF speichern …</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>Als Text &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Modul</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>&amp;Ereignisse</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>Es wurde kein Modul gelesen: nichts zu speichern, drucken oder kopieren.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>Kein Hilfeprogramm installiert: Die Hilfe wird im Browser gezeigt.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>Es ist kein Programm installiert, das die Hilfe zeigt.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>Weder Port noch Lesegerät gefunden. Bitte anschließen und das Programm neu starten.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>Das Modul passt. Dieses Programm hat keine Parameter zu übertragen.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Modul-Information</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>Nicht im Katalog</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Bekannt, Firmware nicht einzuordnen</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Bekannt, Firmware neuer als im Katalog</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Mit dieser Firmware bekannt</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Bekannt, Firmware älter als im Katalog</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>Der Katalog war nicht verwendbar</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Statuswort / LED-Wort</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Statuszeile</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Produktseite</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Datenblatt</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Packungsbeilage</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Modul</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>d. MMMM yyyy, HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>Aufgezeichnet</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Modulprotokoll</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Modulprotokolle (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Als Text kopiert</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Protokoll speichern</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Drucken: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Protokoll öffnen</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 ist kein Modulprotokoll: Die Datei ist größer als %2 KB.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 ist kein Modulprotokoll: kein JSON in Zeile %2, Spalte %3 (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 ist kein Modulprotokoll: Das Format ist nicht %2.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 stammt von einem neueren Programm: Version %2, dieses Programm liest bis Version %3.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 ist ein beschädigtes Modulprotokoll: Das Feld %2 fehlt.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 ist ein beschädigtes Modulprotokoll: Das Feld %2 ist %3 und muss %4 sein.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>eines von %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Protokoll: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>Protokoll vom %1 aus der Datei %2: nicht der jetzige Zustand des Moduls.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Als &amp;PDF speichern …</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Schl&amp;ießen</translation>
    </message>
</context>
</TS>
