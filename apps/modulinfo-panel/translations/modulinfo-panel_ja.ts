<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>待機中</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>モジュールと通信中</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>モジュールを読み出せませんでした</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>状態を更新中</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>ポートもリーダも見つかりません</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>ホストプログラムが動作中</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>時刻</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>発信元</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>イベント</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>結果</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>破棄された古いイベントの数：%1。</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>イベント</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>保存(&amp;S)…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>コピー(&amp;O)</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>消去(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>保存</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>テキストファイル (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>記録を開く(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>記録を保存(&amp;S)…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>PDFとして保存(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>印刷(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>テキストとしてコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>モジュール(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>イベント(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>モジュールが読み出されていないため、保存、印刷、コピーするものがありません。</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>ヘルプビューアがインストールされていません：ヘルプをブラウザで表示します。</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>ヘルプを表示できるプログラムがインストールされていません。</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>ポートもリーダも見つかりません。接続してからプログラムを再起動してください。</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>モジュールは一致しています。このプログラムには転送するパラメータがありません。</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>モジュール情報</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>カタログに未登録</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>登録済み、FWバージョンは判定不可</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>登録済み、FWはカタログより新しい</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>このFWバージョンで登録済み</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>登録済み、FWはカタログより古い</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>カタログを使用できませんでした</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>状態ワード / LEDワード</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>状態表示行</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>通信方式</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>登録</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>製品ページ</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>データシート</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>添付文書</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>モジュール</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>識別情報</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>接続</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>カタログ</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>yyyy年M月d日 HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>記録日時</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>モジュール記録</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>%1 / %2 ページ</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>モジュール記録 (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>%1 に保存しました</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>テキストとしてコピーしました</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>記録を保存</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>PDFとして保存</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDFファイル (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>印刷：%1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>記録を開く</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 を読み込めません：%2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>%1 に書き込めません：%2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 はモジュール記録ではありません：ファイルが %2 KB を超えています。</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 はモジュール記録ではありません：%2 行 %3 列が JSON ではありません（%4）。</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 はモジュール記録ではありません：形式が %2 ではありません。</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 は新しいプログラムで作成されています：バージョン %2、このプログラムで読めるのはバージョン %3 までです。</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 は破損したモジュール記録です：項目 %2 がありません。</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 は破損したモジュール記録です：項目 %2 の値は %3 ですが、必要なのは%4です。</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>オブジェクト</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true または false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>日時</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>%1 から %2 までの整数</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>次のいずれか（%1）</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>記録：%1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>%1 の記録（ファイル %2）：モジュールの現在の状態ではありません。</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>印刷(&amp;P)…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>PDFとして保存(&amp;D)…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>コピー(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
</context>
</TS>
