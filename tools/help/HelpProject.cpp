#include "tools/help/HelpProject.h"

#include <map>
#include <set>

#include "tools/help/HtmlText.h"

namespace tessara {
namespace {

std::string fileOf(const HelpPage& page) {
  return page.name + ".html";
}

std::string placeOf(const HelpPage& page, const HelpHeading& heading) {
  return fileOf(page) + (heading.anchor.empty() ? "" : "#" + heading.anchor);
}

std::string linkTo(const std::string& target, const std::string& text) {
  return "<a href=\"" + target + "\">" + asHtml(text) + "</a>";
}

std::string navigation(const HelpPlan& plan, const std::vector<HelpPage>& pages,
                       std::size_t place) {
  std::string html = "<p class=\"ways\">";
  if (place > 0) {
    const HelpPage& previous = pages[place - 1];
    html += linkTo(fileOf(pages.front()), plan.contents) + "\n" +
            linkTo(fileOf(previous), plan.back + ": " + previous.title()) + "\n";
  }
  if (place + 1 < pages.size()) {
    const HelpPage& next = pages[place + 1];
    html += linkTo(fileOf(next), plan.next + ": " + next.title());
  }
  return html + "</p>\n";
}

/// All pages but the first, which contains the list.
std::string listOfPages(const std::vector<HelpPage>& pages) {
  std::string html = "<ol class=\"contents\">\n";
  for (std::size_t place = 1; place < pages.size(); ++place) {
    html += "<li>" + linkTo(fileOf(pages[place]), pages[place].title()) + "</li>\n";
  }
  return html + "</ol>";
}

std::string siteMapObject(const std::string& name, const std::string& local) {
  return R"(<li><object type="text/sitemap"><param name="Name" value=")" + asAsciiHtml(name) +
         R"("><param name="Local" value=")" + local + "\"></object>\n";
}

std::string siteMap(const std::string& entries) {
  return "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<html>\n<head></head>\n<body>\n<ul>\n" +
         entries + "</ul>\n</body>\n</html>\n";
}

}  // namespace

std::string pageHtml(const HelpPlan& plan, const std::vector<HelpPage>& pages, std::size_t place) {
  const HelpPage& page = pages[place];
  std::string body = page.body;
  if (const auto mark = body.find(contentsMark); mark != std::string::npos) {
    body.replace(mark, std::string_view(contentsMark).size(), listOfPages(pages));
  }
  return "<!DOCTYPE html>\n<html lang=\"" + plan.htmlLanguage +
         "\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + asHtml(page.title()) +
         "</title>\n<link rel=\"stylesheet\" href=\"" + helpStyle + "\">\n</head>\n<body>\n" +
         body + navigation(plan, pages, place) + "</body>\n</html>\n";
}

std::string projectText(const HelpPlan& plan, const std::vector<HelpPage>& pages,
                        const std::string& stem) {
  std::string text = "[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=" + stem +
                     ".chm\nContents file=" + stem + ".hhc\nIndex file=" + stem +
                     ".hhk\nDefault topic=" + fileOf(pages.front()) + "\nTitle=" + plan.title +
                     "\nLanguage=" + plan.language + "\nFull-text search=Yes\n\n[FILES]\n";
  std::set<std::string> pictures;
  for (const HelpPage& page : pages) {
    text += fileOf(page) + "\n";
    pictures.insert(page.pictures.begin(), page.pictures.end());
  }
  text += std::string(helpStyle) + "\n";
  for (const std::string& picture : pictures) {
    text += picture + "\n";
  }
  return text;
}

std::string contentsText(const std::vector<HelpPage>& pages) {
  std::string entries;
  for (const HelpPage& page : pages) {
    std::string sections;
    for (const HelpHeading& heading : page.headings) {
      const std::string entry = siteMapObject(heading.text, placeOf(page, heading));
      (heading.level == 1 ? entries : sections) += entry;
    }
    if (!sections.empty()) {
      entries += "<ul>\n" + sections + "</ul>\n";
    }
  }
  return siteMap(entries);
}

std::string indexText(const std::vector<HelpPage>& pages) {
  std::map<std::string, std::string> places;
  for (const HelpPage& page : pages) {
    for (const HelpHeading& heading : page.headings) {
      places.try_emplace(heading.text, placeOf(page, heading));
      for (const std::string& word : heading.keywords) {
        places.try_emplace(word, placeOf(page, heading));
      }
    }
  }
  std::string entries;
  for (const auto& [word, place] : places) {
    entries += siteMapObject(word, place);
  }
  return siteMap(entries);
}

}  // namespace tessara
