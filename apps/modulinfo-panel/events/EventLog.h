#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QString>
#include <cstddef>
#include <deque>
#include <variant>

#include "drivers/TracedObject.h"
#include "words/HostTexts.h"

namespace tessara {

/// A callback of the control as the host heard it: "ModulActive(1)", and what the host then saw, if
/// there was something to see.
struct HostEvent {
  QString callback;
  QString seen;
};

/// What has happened between host, control and module, the newest last, as far as memory is set
/// aside for it; also the table of what an event view shows. Keeping an event costs little more
/// than its own values: texts are made when somebody reads them.
class EventLog : public QAbstractTableModel {
 public:
  enum Column { Time, Origin, What, Result, Milliseconds };
  static constexpr int columns = 5;

  /// About two hours of a module that is scanned every four seconds.
  static constexpr std::size_t usualCapacity = 10'000;

  explicit EventLog(std::size_t capacity = usualCapacity) : capacity_(capacity) {}

  /// The words of the column titles and of the saved text.
  void setWords(const HostTexts& words);

  void add(HostEvent event) { keep(std::move(event)); }
  void add(const DeviceCall& call) { keep(call); }
  void clear();

  /// How many events have had to make room for newer ones since the last clearing.
  [[nodiscard]] std::size_t dropped() const { return dropped_; }

  /// The first error of a call to the module since a connection was tried last; empty if there was
  /// none.
  [[nodiscard]] QString failureCause() const;

  /// Those rows as text, a line each, columns separated by tabs.
  [[nodiscard]] QString text(int first, int last) const;
  /// All of them, with the titles of the columns and a note on those that were dropped in front.
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
  HostTexts words_;
};

}  // namespace tessara
