#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/Variant.h"
#include "knowledge/CatalogResult.h"
#include "knowledge/DeviceProfile.h"
#include "platform/CommunicationObject.h"

namespace tessara {

/// The state of one control: plain fields that all its parts read and write.
struct Fields : DeviceProfile {
  /// A connection to a module is open.
  bool DeviceConnected = false;
  /// The last read was completed.
  bool bDataValid = false;
  /// The last status word read.
  std::int16_t StatusWord = 0;
  /// The one line that the host displays.
  std::u16string StatusString;
  /// The selected communication object as hosts get it, and as the control calls it. Both are
  /// assigned together.
  std::shared_ptr<tessara::CommunicationObject> CommunicationObject;
  std::shared_ptr<tessara::CommunicationObject> CommObject;
  /// The host has declared work in progress.
  bool HostActive = false;
  /// EnableCmdStore must not enable CmdStoreParameter.
  bool bCmdStoreLocked = true;
  /// Folder of the language files and of the logo and picture files.
  std::u16string AppPathString;
  /// Language number, 1 to 11; 0 follows the country of the system.
  std::int16_t Language = 0;
  /// Enabled states of CmdStoreParameter, CmdOfflineConfigure, CmdOpenDiskParameter and
  /// CmdSave2DiskParameter, saved while the host is busy and during a read; the rest is unused.
  std::array<bool, 7> SavedCmdEnabled{true, true, true, false, false, false, false};
  /// The user chose to work without a module.
  bool OfflineMode = false;
  /// Neither a port nor an NFC reader was found at start-up.
  bool ReaderMissing = false;
  /// Attempts of the current read; 0 between two reads.
  std::int16_t ConnectAttempts = 0;
  /// Failed scans of the control since it was initialised.
  std::int16_t ScanErrorCount = 0;
  /// The saved enabled state of the scan timer.
  bool ScanEnabled = false;
  /// The selected port's number; 999 for the USB NFC reader.
  std::int16_t ComPort = 0;
  /// The selected rate in bit/s.
  std::int32_t Baudrate = 0;
  /// The serial line as reported to hosts: 8 data bits, 1 stop bit, even parity (2).
  std::int16_t DataBits = 0;
  std::int16_t StopBits = 0;
  std::int16_t Parity = 0;
  /// Device type name.
  std::u16string DeviceName;
  /// The identification record.
  std::int16_t VendorID = 0;
  std::int16_t GroupID = 0;
  std::int16_t FamilyID = 0;
  std::int16_t DeviceID = 0;
  /// The firmware version as a number and as text.
  float FirmwareVers = 0;
  std::u16string FwVersion;
  /// The second version number of a module; shown nowhere.
  float SecondVersion = 0;
  /// Empty before the first read, then a decimal of up to 64 bits.
  Variant SerialNumber;
  /// Only read by hosts; never assigned.
  std::int32_t MaxBaudrate = 0;
  /// The address in every call to a module; 0 until the first read.
  std::uint8_t DevAddr = 0;
  /// Revision of the NFC reader's processor, three decimal numbers joined by points.
  std::u16string sNFCMCURevision;
  /// The last LED status word.
  std::int32_t LedWord = 0;
  /// The result of the last catalogue lookup; nothing before the first.
  std::optional<CatalogResult> catalogVerdict;
  /// Version text of the host, for the about box.
  std::u16string VersionString;
  /// A text for the host's own use.
  std::u16string CmdLineString;
  /// The selected path is an NFC reader.
  bool bNFCReader = false;
  /// A flag that only the host reads and writes.
  bool bQuickSetup = false;
  /// The selected port is a HART modem.
  bool HartMode = false;
  /// The answer to the last message box.
  std::int32_t lMsgResult = 0;
};

}  // namespace tessara
