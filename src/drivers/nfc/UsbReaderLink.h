#pragma once

#include "drivers/nfc/ReaderLink.h"
#include "drivers/nfc/UsbReader.h"

namespace tessara {

/// Modules in the field of the USB reader.
class UsbReaderLink final : public ReaderLink {
 public:
  explicit UsbReaderLink(UsbReader reader) : reader_(std::move(reader)) {}
  ~UsbReaderLink() override;

  TagUid selectTag() override;
  Bytes exchange(const AirRequest& request) override;

 private:
  void askForRevisionOnce();
  AirAnswer send(const AirRequest& request);

  UsbReader reader_;
  bool isAsked_ = false;  // for its revision, after which newer boards deliver long answers whole
  bool isAnswering_ = false;  // at the last command
};

}  // namespace tessara
