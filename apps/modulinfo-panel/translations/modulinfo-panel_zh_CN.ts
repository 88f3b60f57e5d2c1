<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>正在访问模块</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>无法读取模块</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>正在刷新状态</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>未找到端口或读卡器</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>主程序正在工作</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>时间</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>来源</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>事件</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>结果</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>毫秒</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>已丢弃的较早事件数：%1。</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>保存(&amp;S)…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>复制(&amp;O)</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>清空(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>保存</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>文本文件 (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>打开记录(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>保存记录(&amp;S)…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>另存为 PDF(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>打印(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>复制为文本(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>模块(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>事件(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>帮助(&amp;H)</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>尚未读取模块，没有可保存、打印或复制的内容。</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>未安装帮助查看器：已在浏览器中显示帮助。</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>未安装可显示帮助的程序。</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>未找到端口或读卡器。请连接后重新启动程序。</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>模块匹配。本程序没有要传输的参数。</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>模块信息</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>不在设备目录中</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>已知设备，但固件版本无法判定</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>已知设备，固件比目录中的新</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>已知设备，固件版本相符</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>已知设备，固件比目录中的旧</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>设备目录无法使用</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>状态字 / LED 字</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>状态行</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>通信方式</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>条目</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>产品页面</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>数据手册</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>随附说明书</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>模块</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>标识</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>连接</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>设备目录</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>yyyy年M月d日 HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>记录时间</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>模块记录</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>第 %1 页，共 %2 页</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>模块记录 (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>已保存为 %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>已复制为文本</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>保存记录</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>另存为 PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF 文件 (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>打印：%1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>打开记录</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 不是模块记录：文件大于 %2 KB。</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 不是模块记录：第 %2 行第 %3 列不是 JSON（%4）。</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 不是模块记录：格式不是 %2。</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 由较新的程序写入：版本 %2，本程序最高读取版本 %3。</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 是损坏的模块记录：缺少字段 %2。</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 是损坏的模块记录：字段 %2 的值为 %3，应为%4。</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>对象</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>文本</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true 或 false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>日期和时间</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>%1 到 %2 的整数</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>下列之一：%1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>记录：%1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>%1 的记录，来自文件 %2：并非模块的当前状态。</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>打印(&amp;P)…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>另存为 PDF(&amp;D)…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>复制(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
</context>
</TS>
