<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Pronto</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Comunicazione con il modulo in corso</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>Impossibile leggere il modulo</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Aggiornamento dello stato in corso</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>Nessuna porta o lettore trovato</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Attività del programma principale</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Ora</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Origine</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Evento</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Risultato</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Eventi precedenti eliminati: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>Eventi</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Salva…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Copia</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>S&amp;vuota</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;hiudi</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>File di testo (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>&amp;Apri rapporto…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>&amp;Salva rapporto…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Salva come P&amp;DF…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>Stam&amp;pa…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Copia come testo</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Esci</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Modulo</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Visualizza</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>&amp;Eventi</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Guida</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>Nessun modulo è stato letto: niente da salvare, stampare o copiare.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>Nessun visualizzatore della guida installato: la guida viene mostrata nel browser.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>Nessun programma installato può mostrare la guida.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>Nessuna porta o lettore trovato. Collegarne uno e riavviare il programma.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>Il modulo è quello giusto. Questo programma non ha parametri da trasferire.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Informazioni sul modulo</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>Non presente nel catalogo</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Noto, versione firmware non classificabile</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Noto, firmware più recente del catalogo</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Noto con questo firmware</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Noto, firmware meno recente del catalogo</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>Impossibile utilizzare il catalogo</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Parola di stato / LED</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Riga di stato</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Trasmissione</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Voce</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Pagina del prodotto</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Scheda tecnica</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Istruzioni allegate</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Modulo</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Identificazione</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Connessione</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>Catalogo</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>d MMMM yyyy, HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>Rilevato il</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Rapporto del modulo</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Pagina %1 di %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Rapporti dei moduli (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Salvato come %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Copiato come testo</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Salva rapporto</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Salva come PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>File PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Stampa: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Apri rapporto</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>Impossibile leggere %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>Impossibile scrivere %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 non è un rapporto di modulo: il file supera %2 KB.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 non è un rapporto di modulo: nessun JSON alla riga %2, colonna %3 (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 non è un rapporto di modulo: il formato non è %2.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 proviene da un programma più recente: versione %2, questo programma legge fino alla versione %3.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 è un rapporto di modulo danneggiato: manca il campo %2.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 è un rapporto di modulo danneggiato: il campo %2 è %3 e deve essere %4.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>un oggetto</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>un testo</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true o false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>una data con ora</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>un numero intero da %1 a %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>uno tra %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Rapporto: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>Rapporto del %1 dal file %2: non è lo stato attuale del modulo.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>Stam&amp;pa…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Salva come P&amp;DF…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Copia</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;hiudi</translation>
    </message>
</context>
</TS>
