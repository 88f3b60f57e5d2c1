#include "words/HostTexts.h"

#include <array>
#include <string_view>

#include "platform/qt/QtText.h"

namespace tessara {
namespace {

/// English, German, Russian, Chinese.
using Row = std::array<std::u16string_view, 4>;

/// In the order of Word.
constexpr std::array<Row, static_cast<std::size_t>(Word::Count)> table{{
    {u"&File", u"&Datei", u"&Файл", u"文件(&F)"},
    {u"&Module", u"&Modul", u"&Модуль", u"模块(&M)"},
    {u"&View", u"&Ansicht", u"&Вид", u"视图(&V)"},
    {u"&Help", u"&Hilfe", u"&Справка", u"帮助(&H)"},
    {u"&Save record…", u"Protokoll &speichern …", u"&Сохранить протокол…", u"保存记录(&S)…"},
    {u"&Open record…", u"Protokoll ö&ffnen …", u"&Открыть протокол…", u"打开记录(&O)…"},
    {u"&Print…", u"&Drucken …", u"&Печать…", u"打印(&P)…"},
    {u"Save as P&DF…", u"Als &PDF speichern …", u"Сохранить как P&DF…", u"另存为 PDF(&D)…"},
    {u"&Copy as text", u"Als Text &kopieren", u"&Копировать как текст", u"复制为文本(&C)"},
    {u"&Quit", u"&Beenden", u"&Выход", u"退出(&Q)"},
    {u"&Events", u"&Ereignisse", u"&События", u"事件(&E)"},

    {u"Module information", u"Modul-Information", u"Информация о модуле", u"模块信息"},
    {u"Ready", u"Bereit", u"Готово", u"就绪"},
    {u"The module is in use", u"Das Modul wird angesprochen", u"Идёт обмен с модулем",
     u"正在访问模块"},
    {u"The module could not be read", u"Das Modul konnte nicht gelesen werden",
     u"Не удалось прочитать модуль", u"无法读取模块"},
    {u"Keeping the status current", u"Der Status wird laufend gelesen", u"Состояние обновляется",
     u"正在刷新状态"},
    {u"No port and no reader was found", u"Weder Port noch Lesegerät gefunden",
     u"Порт или считыватель не найден", u"未找到端口或读卡器"},
    {u"Work of the host", u"Arbeit des Hauptprogramms", u"Работа главной программы",
     u"主程序正在工作"},
    {u"No port and no reader was found. Plug one in and start the program again.",
     u"Weder Port noch Lesegerät gefunden. Bitte anschließen und das Programm neu starten.",
     u"Порт или считыватель не найден. Подключите его и запустите программу снова.",
     u"未找到端口或读卡器。请连接后重新启动程序。"},
    {u"The module fits. This program has no parameters to transfer to it.",
     u"Das Modul passt. Dieses Programm hat keine Parameter zu übertragen.",
     u"Модуль подходит. У этой программы нет параметров для передачи.",
     u"模块匹配。本程序没有要传输的参数。"},
    {u"No module has been read, so there is nothing to save, print or copy.",
     u"Es wurde kein Modul gelesen: nichts zu speichern, drucken oder kopieren.",
     u"Модуль не прочитан: нечего сохранять, печатать или копировать.",
     u"尚未读取模块，没有可保存、打印或复制的内容。"},
    {u"Saved as %1", u"Gespeichert als %1", u"Сохранено как %1", u"已保存为 %1"},
    {u"Copied as text", u"Als Text kopiert", u"Скопировано как текст", u"已复制为文本"},
    {u"No help viewer is installed: the help is shown in the browser.",
     u"Kein Hilfeprogramm installiert: Die Hilfe wird im Browser gezeigt.",
     u"Программа просмотра справки не установлена: справка открыта в браузере.",
     u"未安装帮助查看器：已在浏览器中显示帮助。"},
    {u"No program is installed that shows the help.",
     u"Es ist kein Programm installiert, das die Hilfe zeigt.",
     u"Не установлена программа для показа справки.", u"未安装可显示帮助的程序。"},

    {u"Module record", u"Modulprotokoll", u"Протокол модуля", u"模块记录"},
    {u"Record of %1 from the file %2: not the module as it is at this moment.",
     u"Protokoll vom %1 aus der Datei %2: nicht der jetzige Zustand des Moduls.",
     u"Протокол от %1 из файла %2: это не текущее состояние модуля.",
     u"%1 的记录，来自文件 %2：并非模块的当前状态。"},
    {u"Record: %1", u"Protokoll: %1", u"Протокол: %1", u"记录：%1"},
    {u"Module records (*.json)", u"Modulprotokolle (*.json)", u"Протоколы модулей (*.json)",
     u"模块记录 (*.json)"},
    {u"Module", u"Modul", u"Модуль", u"模块"},
    {u"Identification", u"Kennung", u"Идентификация", u"标识"},
    {u"Connection", u"Verbindung", u"Соединение", u"连接"},
    {u"Catalogue", u"Katalog", u"Каталог", u"目录"},
    {u"Recorded", u"Aufgezeichnet", u"Записано", u"记录时间"},
    {u"Path", u"Übertragung", u"Протокол связи", u"通信方式"},
    {u"Status word / LED word", u"Statuswort / LED-Wort", u"Слово состояния / LED",
     u"状态字 / LED 字"},
    {u"Status line", u"Statuszeile", u"Строка состояния", u"状态行"},
    {u"Entry", u"Eintrag", u"Запись", u"条目"},
    {u"Product page", u"Produktseite", u"Страница изделия", u"产品页面"},
    {u"Data sheet", u"Datenblatt", u"Техническое описание", u"数据表"},
    {u"Package leaflet", u"Packungsbeilage", u"Листок-вкладыш", u"包装说明"},
    {u"The catalogue could not be used", u"Der Katalog war nicht verwendbar",
     u"Каталог не удалось использовать", u"目录无法使用"},
    {u"Not in the catalogue", u"Nicht im Katalog", u"Нет в каталоге", u"不在目录中"},
    {u"Known, but the firmware could not be placed", u"Bekannt, Firmware nicht einzuordnen",
     u"Известен, версия ПО не определена", u"已知，但固件版本无法判定"},
    {u"Known; the firmware is newer than the catalogue", u"Bekannt, Firmware neuer als im Katalog",
     u"Известен, версия ПО новее, чем в каталоге", u"已知，固件比目录新"},
    {u"Known with this firmware", u"Mit dieser Firmware bekannt", u"Известен с этой версией ПО",
     u"已知，固件版本相符"},
    {u"Known; the firmware is older than the catalogue", u"Bekannt, Firmware älter als im Katalog",
     u"Известен, версия ПО старше, чем в каталоге", u"已知，固件比目录旧"},
    {u"Page %1 of %2", u"Seite %1 von %2", u"Страница %1 из %2", u"第 %1 页，共 %2 页"},
    {u"&Close", u"Schl&ießen", u"&Закрыть", u"关闭(&C)"},
    {u"C&opy", u"&Kopieren", u"&Копировать", u"复制(&O)"},
    {u"PDF files (*.pdf)", u"PDF-Dateien (*.pdf)", u"Файлы PDF (*.pdf)", u"PDF 文件 (*.pdf)"},

    {u"Events", u"Ereignisse", u"События", u"事件"},
    {u"Time", u"Zeit", u"Время", u"时间"},
    {u"From", u"Von", u"Источник", u"来源"},
    {u"Event", u"Ereignis", u"Событие", u"事件"},
    {u"Result", u"Ergebnis", u"Результат", u"结果"},
    {u"ms", u"ms", u"мс", u"毫秒"},
    {u"&Save…", u"&Speichern …", u"&Сохранить…", u"保存(&S)…"},
    {u"C&lear", u"&Leeren", u"&Очистить", u"清空(&L)"},
    {u"%1 older events were dropped.", u"%1 ältere Ereignisse wurden verworfen.",
     u"Более ранние события удалены: %1.", u"已丢弃较早的事件：%1。"},
    {u"Text files (*.txt)", u"Textdateien (*.txt)", u"Текстовые файлы (*.txt)",
     u"文本文件 (*.txt)"},

    {u"%1 cannot be read: %2", u"%1 kann nicht gelesen werden: %2", u"%1 не читается: %2",
     u"无法读取 %1：%2"},
    {u"%1 cannot be written: %2", u"%1 kann nicht geschrieben werden: %2",
     u"%1 не удаётся записать: %2", u"无法写入 %1：%2"},
    {u"%1 is no module record: it is larger than %2 KB.",
     u"%1 ist kein Modulprotokoll: Die Datei ist größer als %2 KB.",
     u"%1 не является протоколом модуля: файл больше %2 КБ.", u"%1 不是模块记录：文件大于 %2 KB。"},
    {u"%1 is no module record: it is no JSON at line %2, column %3 (%4).",
     u"%1 ist kein Modulprotokoll: kein JSON in Zeile %2, Spalte %3 (%4).",
     u"%1 не является протоколом модуля: не JSON в строке %2, столбце %3 (%4).",
     u"%1 不是模块记录：第 %2 行第 %3 列不是 JSON（%4）。"},
    {u"%1 is no module record: its format is not %2.",
     u"%1 ist kein Modulprotokoll: Das Format ist nicht %2.",
     u"%1 не является протоколом модуля: формат не %2.", u"%1 不是模块记录：格式不是 %2。"},
    {u"%1 was written by a newer program: it has version %2, this program reads up to version %3.",
     u"%1 stammt von einem neueren Programm: Version %2, dieses Programm liest bis Version %3.",
     u"%1 записан более новой программой: версия %2, эта программа читает до версии %3.",
     u"%1 由较新的程序写入：版本 %2，本程序最高读取版本 %3。"},
    {u"%1 is a damaged module record: the field %2 is missing.",
     u"%1 ist ein beschädigtes Modulprotokoll: Das Feld %2 fehlt.",
     u"%1 — повреждённый протокол модуля: нет поля %2.", u"%1 是损坏的模块记录：缺少字段 %2。"},
    {u"%1 is a damaged module record: the field %2 is %3 and has to be %4.",
     u"%1 ist ein beschädigtes Modulprotokoll: Das Feld %2 ist %3 und muss %4 sein.",
     u"%1 — повреждённый протокол модуля: поле %2 равно %3, а должно быть: %4.",
     u"%1 是损坏的模块记录：字段 %2 的值为 %3，应为%4。"},
    {u"an object", u"ein Objekt", u"объект", u"对象"},
    {u"a text", u"ein Text", u"текст", u"文本"},
    {u"true or false", u"true oder false", u"true или false", u"true 或 false"},
    {u"a date and time", u"Datum und Uhrzeit", u"дата и время", u"日期和时间"},
    {u"a whole number from %1 to %2", u"eine ganze Zahl von %1 bis %2", u"целое число от %1 до %2",
     u"%1 到 %2 的整数"},
    {u"one of %1", u"eines von %1", u"одно из: %1", u"下列之一：%1"},
}};

}  // namespace

HostTexts HostTexts::beside(const LanguageState& state) {
  if (state.LanguageFileError) {
    return HostTexts(Language::German);
  }
  const char16_t letter =
      state.LanguageFileExtension.empty() ? u'e' : state.LanguageFileExtension[0];
  switch (letter) {
    case u'd':
      return HostTexts(Language::German);
    case u'r':
      return HostTexts(Language::Russian);
    case u'c':
      return HostTexts(Language::Chinese);
    default:
      return HostTexts(Language::English);
  }
}

QString HostTexts::operator()(Word word) const {
  return toQt(table.at(static_cast<std::size_t>(word)).at(static_cast<std::size_t>(language_)));
}

QString HostTexts::operator()(Word word, const QStringList& arguments) const {
  const QString text = (*this)(word);
  QString filled;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int place = text[i] == '%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
    if (place >= 1 && place <= arguments.size()) {
      filled += arguments[place - 1];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace tessara
