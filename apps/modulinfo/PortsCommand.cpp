#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Commands.h"
#include "PortList.h"
#include "asio/AsioEventLoop.h"
#include "common/HeadlessMessageHelper.h"
#include "linux/LinuxPlatform.h"
#include "localisation/Settings.h"
#include "ports/RegEnum.h"

namespace tessara {

namespace {

/// The port list as a control would show it now.
RegEnum listOf(LinuxPlatform& platform) {
  const auto registry = platform.createRegistryHelper();
  RegEnum list;
  list.ShowAllComPorts =
      ReadNumber(*registry, u"ShowAllComPorts", platform.locale().decimalSeparator());
  EnumerateComPorts(list, *registry, platform.registryApi());
  return list;
}

bool readerAnswers(NfcReaderLibrary& reader) {
  constexpr std::size_t replySize = 256;
  std::string reply(replySize, '\0');
  return reader.CR95HFDLL_USBconnect() == NfcReaderLibrary::success &&
         reader.CR95HFDll_Echo(reply) == NfcReaderLibrary::success;
}

}  // namespace

ExitCode run(const PortsRequest& request) {
  AsioEventLoop loop;
  std::vector<std::string> problems;
  LinuxPlatformOptions options;
  options.portProblemSink = [&problems](const std::string& problem) {
    printPortProblem(problem);
    problems.push_back(problem);
  };
  LinuxPlatform platform(loop, std::make_shared<HeadlessMessageHelper>(std::cerr),
                         std::move(options));
  const auto lines = portLines(listOf(platform), readerAnswers(platform.nfcReaderLibrary()),
                               platform.ports().ports());
  request.json ? printPortJson(std::cout, lines, problems)
               : printPortTable(std::cout, lines, problems);
  return ExitCode::Done;
}

}  // namespace tessara
