#pragma once

#include "catalogue/CatalogueChecker.h"
#include "xml/XmlDocument.h"

namespace tessara {

/// Walks a catalogue from its root as lookups of all its modules would, and adds its entries and
/// what is wrong with them to `report`. The document must have been parsed with its places.
void walkCatalogue(const XmlDocument& document, CatalogueReport& report);

}  // namespace tessara
