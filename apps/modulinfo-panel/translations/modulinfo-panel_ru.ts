<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Идёт обмен с модулем</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>Не удалось считать данные модуля</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Статус обновляется</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>Порт или считыватель не найден</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Работа главной программы</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Время</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Источник</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Событие</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Результат</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>мс</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Удалено более ранних событий: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>События</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Сохранить…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>&amp;Очистить</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Закрыть</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Текстовые файлы (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>&amp;Открыть протокол…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>&amp;Сохранить протокол…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Сохранить как P&amp;DF…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Печать…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Копировать как текст</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Выход</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Модуль</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Вид</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>&amp;События</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Справка</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>Данные модуля не считаны: нечего сохранять, печатать или копировать.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>Программа просмотра справки не установлена: справка открыта в браузере.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>Не установлена программа для показа справки.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>Порт или считыватель не найден. Подключите его и запустите программу снова.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>Модуль подходит. У этой программы нет параметров для передачи.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Информация о модуле</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>Нет в каталоге</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Известен, версия прошивки не определена</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Известен, прошивка новее, чем в каталоге</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Известен с этой версией прошивки</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Известен, прошивка старше, чем в каталоге</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>Каталог не удалось использовать</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Слова статуса и LED</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Строка состояния</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Способ связи</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Запись</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Страница изделия</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Техническое описание</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Листок-вкладыш</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Модуль</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Идентификация</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Соединение</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>Каталог</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>d MMMM yyyy &apos;г.&apos;, HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>Записано</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Протокол модуля</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Страница %1 из %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Протоколы модулей (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Сохранено как %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Скопировано как текст</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Сохранить протокол</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Сохранить как PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>Файлы PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Печать: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Открыть протокол</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 не удаётся прочитать: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 не удаётся записать: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 не является протоколом модуля: файл больше %2 КБ.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 не является протоколом модуля: не JSON в строке %2, столбце %3 (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 не является протоколом модуля: формат не %2.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 записан более новой программой: версия %2, эта программа читает до версии %3.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 — повреждённый протокол модуля: нет поля %2.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 — повреждённый протокол модуля: поле %2 равно %3, а должно быть: %4.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>объект</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>текст</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true или false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>дата и время</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>целое число от %1 до %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>одно из: %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Протокол: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>Протокол от %1 из файла %2: это не текущее состояние модуля.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Печать…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Сохранить как P&amp;DF…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Закрыть</translation>
    </message>
</context>
</TS>
