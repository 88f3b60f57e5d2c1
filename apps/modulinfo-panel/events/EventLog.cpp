#include "events/EventLog.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <array>
#include <iterator>

namespace tessara {
namespace {

constexpr auto connectOperation = "ConnectWithSerialDevice";

QString listed(const auto& numbers) {
  QStringList texts;
  for (const auto number : numbers) {
    texts += QString::number(number);
  }
  return texts.join(", ");
}

struct ResultText {
  QString operator()(std::monostate /*nothing*/) const { return {}; }
  QString operator()(bool value) const { return value ? "true" : "false"; }
  QString operator()(const DeviceWords& words) const { return '[' + listed(words) + ']'; }
};

/// The cells after the time.
struct CellText {
  int column;

  QString operator()(const HostEvent& event) const {
    switch (column) {
      case EventLog::Origin:
        return "ModulInfoFLII";
      case EventLog::What:
        return event.callback;
      case EventLog::Result:
        return event.seen;
      default:
        return {};
    }
  }

  QString operator()(const DeviceCall& call) const {
    constexpr int decimals = 1;
    switch (column) {
      case EventLog::Origin:
        return QString::fromStdString(call.object);
      case EventLog::What:
        return QString::fromStdString(call.operation) + '(' + listed(call.arguments) + ')';
      case EventLog::Result:
        return call.error ? QString::fromStdString(*call.error)
                          : std::visit(ResultText{}, call.result);
      default:
        return QLocale().toString(call.milliseconds, 'f', decimals);
    }
  }
};

QVariant alignment(int column) {
  const auto side = column == EventLog::Milliseconds ? Qt::AlignRight : Qt::AlignLeft;
  return QVariant::fromValue(side | Qt::AlignVCenter);
}

/// In the order of EventLog::Column.
constexpr std::array<const char*, EventLog::columns> titles{
    //: Title of a column: when the event happened
    QT_TRANSLATE_NOOP("EventLog", "Time"),
    //: Title of a column: the object that the event came from
    QT_TRANSLATE_NOOP("EventLog", "From"),
    //: Title of a column: the callback or call with its arguments
    QT_TRANSLATE_NOOP("EventLog", "Event"),
    //: Title of a column: what the call returned, or its error
    QT_TRANSLATE_NOOP("EventLog", "Result"),
    //: Title of a column: the duration of the call in milliseconds
    QT_TRANSLATE_NOOP("EventLog", "ms"),
};

QString titleOf(std::size_t column) {
  return QCoreApplication::translate("EventLog", titles.at(column));
}

}  // namespace

void EventLog::keep(std::variant<HostEvent, DeviceCall> what) {
  if (entries_.size() == capacity_) {
    beginRemoveRows({}, 0, 0);
    entries_.pop_front();
    ++dropped_;
    endRemoveRows();
  }
  const int row = rowCount();
  beginInsertRows({}, row, row);
  entries_.push_back({QDateTime::currentDateTime(), std::move(what)});
  endInsertRows();
}

void EventLog::clear() {
  beginResetModel();
  entries_.clear();
  dropped_ = 0;
  endResetModel();
}

QString EventLog::failureCause() const {
  const auto isConnect = [](const Entry& entry) {
    const auto* call = std::get_if<DeviceCall>(&entry.what);
    return call != nullptr && call->operation == connectOperation;
  };
  const auto connect = std::find_if(entries_.rbegin(), entries_.rend(), isConnect);
  const auto since = connect == entries_.rend() ? entries_.begin() : std::prev(connect.base());
  const auto failed = std::find_if(since, entries_.end(), [](const Entry& entry) {
    const auto* call = std::get_if<DeviceCall>(&entry.what);
    return call != nullptr && call->error;
  });
  return failed == entries_.end()
             ? QString()
             : QString::fromStdString(*std::get<DeviceCall>(failed->what).error);
}

QString EventLog::cell(int row, int column) const {
  const Entry& entry = entries_.at(static_cast<std::size_t>(row));
  return column == Time ? entry.time.toString("HH:mm:ss.zzz")
                        : std::visit(CellText{column}, entry.what);
}

QString EventLog::text(int first, int last) const {
  QString lines;
  for (int row = first; row <= last; ++row) {
    QStringList cells;
    for (int column = 0; column < columns; ++column) {
      // The message of a driver may span several lines.
      cells += cell(row, column).simplified();
    }
    lines += cells.join('\t') + '\n';
  }
  return lines;
}

QString EventLog::text() const {
  QString text;
  if (dropped_ > 0) {
    text =
        QCoreApplication::translate("EventLog", "Older events dropped: %1.").arg(dropped_) + '\n';
  }
  QStringList headings;
  for (std::size_t column = 0; column < columns; ++column) {
    headings += titleOf(column);
  }
  return text + headings.join('\t') + '\n' + this->text(0, rowCount() - 1);
}

int EventLog::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int EventLog::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns;
}

QVariant EventLog::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return cell(index.row(), index.column());
    case Qt::TextAlignmentRole:
      return alignment(index.column());
    default:
      return {};
  }
}

QVariant EventLog::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
      return titleOf(static_cast<std::size_t>(section));
    case Qt::TextAlignmentRole:
      return alignment(section);
    default:
      return {};
  }
}

}  // namespace tessara
