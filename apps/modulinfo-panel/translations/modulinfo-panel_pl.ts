<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Gotowe</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Trwa komunikacja z modułem</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>Nie udało się odczytać modułu</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Aktualizowanie stanu</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>Nie znaleziono portu ani czytnika</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Praca programu głównego</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Czas</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Źródło</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Zdarzenie</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Wynik</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Liczba usuniętych starszych zdarzeń: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>Zdarzenia</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Zapisz…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopiuj</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>Wy&amp;czyść</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Za&amp;mknij</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Pliki tekstowe (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Plik</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>&amp;Otwórz raport…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>&amp;Zapisz raport…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Zapisz jako PD&amp;F…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drukuj…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Kopiuj jako tekst</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>Z&amp;akończ</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Moduł</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Widok</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>Z&amp;darzenia</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>Pomo&amp;c</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>Nie odczytano żadnego modułu: nie ma czego zapisać, wydrukować ani skopiować.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>Brak zainstalowanej przeglądarki pomocy: pomoc jest wyświetlana w przeglądarce internetowej.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>Nie zainstalowano programu, który wyświetla pomoc.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>Nie znaleziono portu ani czytnika. Podłącz go i uruchom program ponownie.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>Moduł jest właściwy. Ten program nie ma parametrów do przesłania.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Informacje o module</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>Brak w katalogu</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Znany, nie można określić wersji firmware</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Znany, firmware nowszy niż w katalogu</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Znany z tą wersją firmware</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Znany, firmware starszy niż w katalogu</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>Nie udało się użyć katalogu</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Słowo stanu / słowo LED</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Wiersz stanu</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Transmisja</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Pozycja</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Strona produktu</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Karta katalogowa</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Ulotka dołączona</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Moduł</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Identyfikacja</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Połączenie</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>d MMMM yyyy, HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>Zapisano</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Raport modułu</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Strona %1 z %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Raporty modułów (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Zapisano jako %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Skopiowano jako tekst</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Zapisz raport</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Zapisz jako PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>Pliki PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Drukuj: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Otwórz raport</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>Nie można odczytać %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>Nie można zapisać %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 nie jest raportem modułu: plik ma więcej niż %2 KB.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 nie jest raportem modułu: brak JSON w wierszu %2, kolumnie %3 (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 nie jest raportem modułu: jego format to nie %2.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 pochodzi z nowszego programu: wersja %2, ten program czyta najwyżej wersję %3.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 to uszkodzony raport modułu: brak pola %2.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 to uszkodzony raport modułu: pole %2 ma wartość %3, a wymagane jest: %4.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>obiekt</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>tekst</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true lub false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>data i godzina</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>liczba całkowita od %1 do %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>jedna z wartości %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Raport: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>Raport z dnia %1 z pliku %2: to nie jest bieżący stan modułu.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drukuj…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Zapisz jako PD&amp;F…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopiuj</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Za&amp;mknij</translation>
    </message>
</context>
</TS>
