#pragma once

#include "drivers/nfc/Iso15693.h"

namespace tessara {

/// An open NFC reader of any make. Every function gives up soon after the reader has stopped
/// answering, and throws NfcFault: ReaderSilent, ReaderRefusal, NoReader or Damage, and what is
/// listed with it. Destroying the object switches the field off.
class ReaderLink {
 public:
  ReaderLink() = default;
  ReaderLink(const ReaderLink&) = delete;
  ReaderLink& operator=(const ReaderLink&) = delete;
  virtual ~ReaderLink() = default;

  /// Switches the field on and finds the tag in it, after discarding late answers of the reader to
  /// earlier requests. Throws NfcFault, also: NoTag if there is no tag.
  virtual TagUid selectTag() = 0;

  /// Sends a request to the tag and returns the data of its answer. Throws NfcFault, also: TagGone
  /// if the tag does not answer, TagRefusal if it refuses.
  virtual Bytes exchange(const AirRequest& request) = 0;
};

}  // namespace tessara
