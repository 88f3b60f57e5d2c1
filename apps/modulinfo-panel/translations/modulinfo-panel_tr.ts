<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr_TR" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Hazır</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Modülle haberleşiliyor</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>Modül okunamadı</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Durum güncelleniyor</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>Port veya okuyucu bulunamadı</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Ana program çalışıyor</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Saat</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Kaynak</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Olay</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Sonuç</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Silinen eski olay sayısı: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>Olaylar</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Kaydet…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>Kopya&amp;la</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>Te&amp;mizle</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Kapa&amp;t</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Kaydet</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Metin dosyaları (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Dosya</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>Rapor &amp;aç…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>Raporu &amp;kaydet…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>&amp;PDF olarak kaydet…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Yazdır…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Metin olarak kopyala</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Çıkış</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Modül</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Görünüm</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>&amp;Olaylar</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Yardım</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>Hiçbir modül okunmadı: kaydedilecek, yazdırılacak veya kopyalanacak bir şey yok.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>Yardım görüntüleyici kurulu değil: yardım tarayıcıda gösteriliyor.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>Yardımı gösterebilecek bir program kurulu değil.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>Port veya okuyucu bulunamadı. Bağlayıp programı yeniden başlatın.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>Modül uygun. Bu programın modüle aktaracağı parametre yok.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Modül bilgileri</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>Katalogda yok</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Kayıtlı, firmware sürümü belirlenemedi</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Kayıtlı, firmware katalogdakinden yeni</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Bu firmware sürümüyle kayıtlı</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Kayıtlı, firmware katalogdakinden eski</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>Katalog kullanılamadı</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Durum / LED sözcüğü</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Durum satırı</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Haberleşme türü</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Kayıt</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Ürün sayfası</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Teknik veri sayfası</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Ürünle gelen kılavuz</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Modül</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Kimlik bilgileri</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Bağlantı</translation>
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
        <translation>Kayıt zamanı</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Modül raporu</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Sayfa %1 / %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Modül raporları (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Kaydedildi: %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Metin olarak kopyalandı</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Raporu kaydet</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>PDF olarak kaydet</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF dosyaları (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Yazdır: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Rapor aç</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 okunamıyor: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 yazılamıyor: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 bir modül raporu değil: dosya %2 KB sınırını aşıyor.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 bir modül raporu değil: satır %2, sütun %3 JSON değil (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 bir modül raporu değil: biçimi %2 değil.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 daha yeni bir programla yazılmış: sürüm %2, bu program en çok sürüm %3 okuyabilir.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 hasarlı bir modül raporu: %2 alanı eksik.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 hasarlı bir modül raporu: %2 alanının değeri %3, olması gereken: %4.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>bir nesne</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>bir metin</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true veya false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>tarih ve saat</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>%1 ile %2 arasında bir tam sayı</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>şunlardan biri: %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Rapor: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>%1 tarihli rapor, dosya %2: modülün şu anki durumu değildir.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Yazdır…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>&amp;PDF olarak kaydet…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>Kopya&amp;la</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Kapa&amp;t</translation>
    </message>
</context>
</TS>
