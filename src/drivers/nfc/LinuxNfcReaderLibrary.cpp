#include "drivers/nfc/LinuxNfcReaderLibrary.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <thread>

#include "drivers/nfc/NfcFault.h"
#include "serial/PortError.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

/// Writes a zero-terminated text into a caller's buffer, as far as there is room.
void put(std::string& buffer, const std::string& text) {
  if (buffer.empty()) return;
  const std::size_t length = std::min(text.size(), buffer.size() - 1);
  buffer.replace(0, length, text, 0, length);
  buffer[length] = '\0';
}

std::unique_ptr<HidDevice> openWithin(UsbReaders& readers, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  for (;;) {
    try {
      return readers.open();
    } catch (const PortError& error) {
      const bool isOver = std::chrono::steady_clock::now() >= deadline;
      if (error.problem() != PortProblem::InUse || isOver) throw;
    }
    std::this_thread::sleep_for(10ms);
  }
}

}  // namespace

std::int32_t LinuxNfcReaderLibrary::CR95HFDLL_USBconnect() {
  reader_.reset();
  try {
    reader_.emplace(openWithin(readers_, timings_.inUse), timings_.answer);
    return success;
  } catch (const std::exception&) {
    return notFound;
  }
}

std::int32_t LinuxNfcReaderLibrary::CR95HFDll_Echo(std::string& reply) {
  return ask(reply, [](UsbReader& reader) { return reader.echo(); });
}

std::int32_t LinuxNfcReaderLibrary::CR95HFDLL_getMCUrev(std::string& reply) {
  const std::int32_t status = ask(reply, [](UsbReader& reader) { return reader.revision(); });
  reader_.reset();
  return status;
}

/// Leaves the text of the answer, or an empty one, in `reply` and returns the status.
template <class Question>
std::int32_t LinuxNfcReaderLibrary::ask(std::string& reply, Question question) {
  // The status alone reports a failure: words would be read as digits of a revision.
  put(reply, {});
  if (!reader_) {
    return notConnected;
  }
  try {
    put(reply, cr95hf::textOf(question(*reader_)));
    return success;
  } catch (const NfcFault&) {
    reader_.reset();
    return communicationError;
  }
}

}  // namespace tessara
