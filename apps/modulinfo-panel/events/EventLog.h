#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QString>
#include <cstddef>
#include <deque>
#include <variant>

#include "drivers/TracedObject.h"

namespace tessara {

/// A callback of the control, such as "ModulActive(1)", and what the host saw then, if anything.
struct HostEvent {
  QString callback;
  QString seen;
};

/// The latest events between host, control and module, the newest last, as the table that an event
/// view shows. Adding an event stores its values only; texts are made when they are read.
class EventLog : public QAbstractTableModel {
 public:
  enum Column { Time, Origin, What, Result, Milliseconds };
  static constexpr int columns = 5;

  /// About two hours of a module that is scanned every four seconds.
  static constexpr std::size_t defaultCapacity = 10'000;

  explicit EventLog(std::size_t capacity = defaultCapacity) : capacity_(capacity) {}

  void add(HostEvent event) { keep(std::move(event)); }
  void add(const DeviceCall& call) { keep(call); }
  void clear();

  /// The number of events that made room for newer ones since the log was last cleared.
  [[nodiscard]] std::size_t dropped() const { return dropped_; }

  /// The first error of a call to the module since the last attempt to connect; empty if there was
  /// none.
  [[nodiscard]] QString failureCause() const;

  /// Those rows as text, a line each, columns separated by tabs.
  [[nodiscard]] QString text(int first, int last) const;
  /// All rows, preceded by the column titles and, if events were dropped, a note of their number.
  [[nodiscard]] QString text() const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  struct Entry {
    QDateTime time;
    std::variant<HostEvent, DeviceCall> what;
  };

  void keep(std::variant<HostEvent, DeviceCall> what);
  [[nodiscard]] QString cell(int row, int column) const;

  std::size_t capacity_;
  std::size_t dropped_ = 0;
  std::deque<Entry> entries_;
};

}  // namespace tessara
