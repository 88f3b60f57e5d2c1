#pragma once

#include <string>
#include <vector>

namespace tessara {

/// A level of the catalogue whose elements have numbered places.
enum class CatalogueLevel { Family, Device, Version };

/// What is wrong with the places of an element and what that causes, a sentence for each fault.
std::vector<std::string> faultsOfPlaces(CatalogueLevel level,
                                        const std::vector<std::string>& places);

}  // namespace tessara
