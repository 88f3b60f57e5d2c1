#pragma once

#include <QCoreApplication>

namespace tessara {

/// The translation context of the words on a record, wherever it is shown: `RecordWords::tr`.
struct RecordWords {
  Q_DECLARE_TR_FUNCTIONS(Record)
};

}  // namespace tessara
