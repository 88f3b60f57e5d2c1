#pragma once

#include <string>
#include <vector>

#include "tools/help/HelpPage.h"
#include "tools/help/HelpPlan.h"

namespace tessara {

/// The style sheet of all pages.
inline constexpr auto helpStyle = "help.css";

/// A page as a browser shows it, with links to its neighbours.
std::string pageHtml(const HelpPlan& plan, const std::vector<HelpPage>& pages, std::size_t place);

/// The three input files of the help compiler: the project, which produces `<stem>.chm` from
/// `<stem>.hhc` and `<stem>.hhk`; the contents, with pages and sections; and the index, with
/// headings and keywords in alphabetical order.
std::string projectText(const HelpPlan& plan, const std::vector<HelpPage>& pages,
                        const std::string& stem);
std::string contentsText(const std::vector<HelpPage>& pages);
std::string indexText(const std::vector<HelpPage>& pages);

}  // namespace tessara
