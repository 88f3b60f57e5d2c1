#include "tools/help/HelpBuilder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

#include "base/RunTimeError.h"
#include "localisation/Language.h"
#include "localisation/LanguageFile.h"
#include "tools/help/HelpPage.h"
#include "tools/help/HelpPlan.h"
#include "tools/help/HelpProject.h"

namespace tessara {
namespace {

using Problems = std::vector<std::string>;

std::optional<std::string> contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string content(std::istreambuf_iterator<char>(stream), {});
  return stream ? std::optional(content) : std::nullopt;
}

bool writeTo(const std::filesystem::path& file, const std::string& content) {
  std::ofstream stream(file, std::ios::binary);
  stream << content << std::flush;
  return stream.good();
}

/// Builds the help of one language.
class HelpBuild {
 public:
  HelpBuild(std::filesystem::path source, const std::filesystem::path& languageFile)
      : source_(std::move(source)) {
    readTexts(languageFile);
    readSources();
    checkLinks();
  }

  [[nodiscard]] const Problems& problems() const { return problems_; }

  void writeInto(const std::filesystem::path& out) {
    const std::string stem = out.filename().string();
    std::error_code unknown;
    std::filesystem::create_directories(out, unknown);
    for (std::size_t place = 0; place < pages_.size(); ++place) {
      write(out / (pages_[place].name + ".html"), pageHtml(plan_, pages_, place));
    }
    write(out / (stem + ".hhp"), projectText(plan_, pages_, stem));
    write(out / (stem + ".hhc"), contentsText(pages_));
    write(out / (stem + ".hhk"), indexText(pages_));
  }

 private:
  void readTexts(const std::filesystem::path& languageFile) {
    try {
      LanguageFile file = LanguageFile::open(languageFile);
      if (readLanguageFile(file, u".", texts_)) {
        return;
      }
      problems_.push_back(languageFile.string() + ": not a language file that the control accepts");
    } catch (const RunTimeError& error) {
      problems_.push_back(languageFile.string() + ": " + error.what());
    }
  }

  /// The text of a source; empty, with a problem noted, if it cannot be read.
  std::string sourceText(const std::filesystem::path& file) {
    const auto text = contentOf(file);
    if (!text) {
      problems_.push_back(file.string() + ": the file cannot be read");
    }
    return text.value_or("");
  }

  void note(const std::filesystem::path& file, const std::vector<FileProblem>& problems) {
    for (const FileProblem& problem : problems) {
      problems_.push_back(toLine(file.string(), problem));
    }
  }

  void readSources() {
    const std::filesystem::path planFile = source_ / "help.txt";
    std::vector<FileProblem> planProblems;
    plan_ = readHelpPlan(sourceText(planFile), planProblems);
    note(planFile, planProblems);
    for (const std::string& name : plan_.pages) {
      const std::filesystem::path file = sourceOf(name);
      std::vector<FileProblem> pageProblems;
      pages_.push_back(readHelpPage(name, sourceText(file), texts_, pageProblems));
      note(file, pageProblems);
    }
  }

  [[nodiscard]] std::filesystem::path sourceOf(const std::string& page) const {
    return source_ / (page + ".html");
  }

  void checkLinks() {
    for (const HelpPage& page : pages_) {
      for (const auto& [line, target] : page.links) {
        if (!hasTarget(page, target)) {
          note(sourceOf(page.name), {{line, "the link to " + target + " is broken"}});
        }
      }
    }
  }

  [[nodiscard]] bool hasTarget(const HelpPage& from, const std::string& target) const {
    const auto mark = target.find('#');
    const std::string file = target.substr(0, mark);
    const auto page = std::find_if(pages_.begin(), pages_.end(), [&](const HelpPage& candidate) {
      return file.empty() ? candidate.name == from.name : candidate.name + ".html" == file;
    });
    return page != pages_.end() &&
           (mark == std::string::npos || page->hasAnchor(target.substr(mark + 1)));
  }

  void write(const std::filesystem::path& file, const std::string& content) {
    if (!writeTo(file, content)) {
      problems_.push_back(file.string() + " cannot be written");
    }
  }

  std::filesystem::path source_;
  LanguageState texts_;
  HelpPlan plan_;
  std::vector<HelpPage> pages_;
  Problems problems_;
};

}  // namespace

std::vector<std::string> buildHelp(const std::filesystem::path& source,
                                   const std::filesystem::path& languageFile,
                                   const std::filesystem::path& out) {
  HelpBuild build(source, languageFile);
  if (build.problems().empty()) {
    build.writeInto(out);
  }
  return build.problems();
}

}  // namespace tessara
