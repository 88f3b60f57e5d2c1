<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Comunicando con el módulo</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>No se pudo leer el módulo</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Actualizando el estado</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>No se encontró ningún puerto ni lector</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Trabajo del programa principal</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Hora</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Origen</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Evento</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Resultado</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Eventos anteriores descartados: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>Eventos</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Guardar…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>&amp;Vaciar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Archivos de texto (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>&amp;Abrir informe…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>&amp;Guardar informe…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Guardar como P&amp;DF…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimir…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Copiar como texto</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Módulo</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>&amp;Eventos</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>Ay&amp;uda</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>No se ha leído ningún módulo: no hay nada que guardar, imprimir o copiar.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>No hay ningún visor de ayuda instalado: la ayuda se muestra en el navegador.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>No hay instalado ningún programa que muestre la ayuda.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>No se encontró ningún puerto ni lector. Conecte uno y reinicie el programa.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>El módulo es correcto. Este programa no tiene parámetros que transferirle.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Información del módulo</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>No figura en el catálogo</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Conocido, versión de firmware no clasificable</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Conocido, firmware más reciente que el catálogo</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Conocido con este firmware</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Conocido, firmware más antiguo que el catálogo</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>No se pudo utilizar el catálogo</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Palabra de estado / LED</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Línea de estado</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Transmisión</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Entrada</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Página del producto</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Hoja de datos</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Instrucciones adjuntas</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Módulo</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Identificación</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Conexión</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>Catálogo</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>d &apos;de&apos; MMMM &apos;de&apos; yyyy, HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>Fecha de registro</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Informe del módulo</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Página %1 de %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Informes de módulos (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Guardado como %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Copiado como texto</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Guardar informe</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Guardar como PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>Archivos PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Imprimir: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Abrir informe</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>No se puede leer %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>No se puede escribir %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 no es un informe de módulo: el archivo supera los %2 KB.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 no es un informe de módulo: no hay JSON en la línea %2, columna %3 (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 no es un informe de módulo: su formato no es %2.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 procede de un programa más reciente: versión %2, este programa lee hasta la versión %3.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 es un informe de módulo dañado: falta el campo %2.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 es un informe de módulo dañado: el campo %2 es %3 y debe ser %4.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>un objeto</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>un texto</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true o false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>una fecha con hora</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>un número entero de %1 a %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>uno de %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Informe: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>Informe del %1 procedente del archivo %2: no es el estado actual del módulo.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimir…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Guardar como P&amp;DF…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
</context>
</TS>
