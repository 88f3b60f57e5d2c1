#include <QStringList>

#include <gtest/gtest.h>

#include "InLanguage.h"
#include "events/EventLog.h"

namespace tessara::testing {
namespace {

QString cell(const EventLog& log, int row, int column) {
  return log.data(log.index(row, column), Qt::DisplayRole).toString();
}

DeviceCall readCall() {
  return {"ModbusCommObject", "ReadInputRegisters", {192, 80, 1, 2}, DeviceWords{-128}, {}, 12.345};
}

TEST(EventLog, ShowsACallbackAndWhatWasSeen) {
  EventLog log;
  log.add(HostEvent{"StatusChange", "Lese Daten"});
  EXPECT_EQ(cell(log, 0, EventLog::Origin), "ModulInfoFLII");
  EXPECT_EQ(cell(log, 0, EventLog::What), "StatusChange");
  EXPECT_EQ(cell(log, 0, EventLog::Result), "Lese Daten");
  EXPECT_EQ(cell(log, 0, EventLog::Milliseconds), "");
}

TEST(EventLog, ShowsACallWithArgumentsResultAndDuration) {
  const InLanguage english(u"elg");
  EventLog log;
  log.add(readCall());
  EXPECT_EQ(cell(log, 0, EventLog::Origin), "ModbusCommObject");
  EXPECT_EQ(cell(log, 0, EventLog::What), "ReadInputRegisters(192, 80, 1, 2)");
  EXPECT_EQ(cell(log, 0, EventLog::Result), "[-128]");
  EXPECT_EQ(cell(log, 0, EventLog::Milliseconds), "12.3");
}

TEST(EventLog, ShowsTruthValuesNothingAndErrors) {
  EventLog log;
  DeviceCall call = readCall();
  call.result = false;
  log.add(call);
  call.result = std::monostate{};
  log.add(call);
  call.error = "COM3: no answer within 500 ms";
  log.add(call);
  EXPECT_EQ(cell(log, 0, EventLog::Result), "false");
  EXPECT_EQ(cell(log, 1, EventLog::Result), "");
  EXPECT_EQ(cell(log, 2, EventLog::Result), "COM3: no answer within 500 ms");
}

TEST(EventLog, ShowsTheTimeToTheMillisecond) {
  EventLog log;
  log.add(HostEvent{"StatusChange", {}});
  EXPECT_TRUE(QTime::fromString(cell(log, 0, EventLog::Time), "HH:mm:ss.zzz").isValid());
}

TEST(EventLog, DropsTheOldestOnceItIsFull) {
  EventLog log(3);
  for (int i = 0; i < 5; ++i) log.add(HostEvent{QString::number(i), {}});
  EXPECT_EQ(log.rowCount(), 3);
  EXPECT_EQ(log.dropped(), 2U);
  EXPECT_EQ(cell(log, 0, EventLog::What), "2");
  EXPECT_EQ(cell(log, 2, EventLog::What), "4");
}

TEST(EventLog, NotifiesAViewOfEachChange) {
  EventLog log(1);
  QStringList changes;
  QObject::connect(&log, &QAbstractItemModel::rowsInserted, [&] { changes += "inserted"; });
  QObject::connect(&log, &QAbstractItemModel::rowsRemoved, [&] { changes += "removed"; });
  QObject::connect(&log, &QAbstractItemModel::modelReset, [&] { changes += "reset"; });
  log.add(HostEvent{"a", {}});
  log.add(HostEvent{"b", {}});
  log.clear();
  EXPECT_EQ(changes, (QStringList{"inserted", "removed", "inserted", "reset"}));
  EXPECT_EQ(log.rowCount(), 0);
  EXPECT_EQ(log.dropped(), 0U);
}

TEST(EventLog, TextHasColumnTitlesALineForEachEventAndANoteOnDroppedOnes) {
  const InLanguage german(u"dlg");
  EventLog log(2);
  log.add(HostEvent{"dropped", {}});
  log.add(HostEvent{"ModulActive(1)", {}});
  DeviceCall call = readCall();
  call.error = "first\nsecond\tline";
  log.add(call);
  const QStringList lines = log.text().split('\n');
  ASSERT_EQ(lines.size(), 5);
  EXPECT_EQ(lines[0], "Verworfene ältere Ereignisse: 1.");
  EXPECT_EQ(lines[1], "Zeit\tVon\tEreignis\tErgebnis\tms");
  EXPECT_EQ(lines[2].section('\t', 1), "ModulInfoFLII\tModulActive(1)\t\t");
  EXPECT_EQ(lines[3].section('\t', 1),
            "ModbusCommObject\tReadInputRegisters(192, 80, 1, 2)\tfirst second line\t12,3");
  EXPECT_EQ(lines[4], "");
}

TEST(EventLog, TheCauseOfAFailureIsTheFirstErrorSinceTheLastConnect) {
  EventLog log;
  EXPECT_EQ(log.failureCause(), "");
  DeviceCall connect{"ModbusCommObject", "ConnectWithSerialDevice", {3, 19200}, true, {}, 1};
  DeviceCall failed = readCall();
  failed.error = "an old one";
  log.add(failed);
  EXPECT_EQ(log.failureCause(), "an old one");
  log.add(connect);
  EXPECT_EQ(log.failureCause(), "");
  log.add(HostEvent{"StatusChange", {}});
  failed.error = "the first";
  log.add(failed);
  failed.error = "the second";
  log.add(failed);
  EXPECT_EQ(log.failureCause(), "the first");
  connect.error = "no such port";
  log.add(connect);
  EXPECT_EQ(log.failureCause(), "no such port");
}

TEST(EventLog, NamesTheColumnsInTheLanguageInstalled) {
  const InLanguage german(u"dlg");
  const EventLog log;
  EXPECT_EQ(log.headerData(EventLog::Time, Qt::Horizontal, Qt::DisplayRole), QVariant("Zeit"));
  EXPECT_EQ(log.headerData(EventLog::Time, Qt::Vertical, Qt::DisplayRole), QVariant());
}

}  // namespace
}  // namespace tessara::testing
