#include <iostream>

#include "Commands.h"
#include "catalogue/CatalogueCommand.h"
#include "tools/language/LanguageCommand.h"

namespace tessara {

namespace {

ExitCode exitCode(bool isGood) {
  return isGood ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace

ExitCode run(const CatalogueCheckRequest& request) {
  return exitCode(runCatalogueCheck(request.files, std::cout));
}

ExitCode run(const LanguageCheckRequest& request) {
  return exitCode(runLanguageCheck(request.files, std::cout));
}

ExitCode run(const LanguageBuildRequest& request) {
  return exitCode(runLanguageBuild(request.source, request.result, std::cerr));
}

}  // namespace tessara
