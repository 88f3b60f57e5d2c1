#pragma once

#include <pugixml.hpp>

#include "catalogue/CatalogueChecker.h"
#include "catalogue/XmlSource.h"

namespace tessara {

/// Walks a catalogue from its root as lookups of all its modules would, and puts what it lists and
/// what they meet into `report`. The document was parsed from the text of `source`.
void walkCatalogue(pugi::xml_node root, const XmlSource& source, CatalogueReport& report);

}  // namespace tessara
