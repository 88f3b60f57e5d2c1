#include "base/Text.h"
#include "control/Control.h"
#include "localisation/Settings.h"
#include "ports/AdapterWords.h"
#include "ports/RegEnum.h"

namespace tessara {

void Control::ComboComPort_Click() {
  CommObject.reset();
  const std::u16string& text = panel.ComboComPort.text();
  const bool bUsbReader = text == usbReaderLine;
  const bool bTwn4 = containsIgnoringCase(text, twn4Word);
  HartMode = containsIgnoringCase(text, hartWord);
  if (bUsbReader) {
    ComPort = usbReaderPort;
  }
  if (bTwn4 || !bUsbReader) {
    const RegEnum& ports = moduleWide();
    ComPort = narrowToInt16(ports.PortNumbers[panel.ComboComPort.state().index], "ComPort");
  }
  selectCommObject(bUsbReader || bTwn4);
  raiseNfcReader();
  SaveComPort(live(moduleWide().RegistryHelper, "RegistryHelper"), ComPort);
}

void Control::ComboBaudrate_Click() {
  Baudrate = toInt32(panel.ComboBaudrate.text(), decimalSeparator());
  SaveBaudrate(Baudrate);
}

}  // namespace tessara
