#include "control/Control.h"
#include "knowledge/Catalogue.h"

namespace tessara {

CatalogResult Control::LookupDevice(std::int32_t family, std::int32_t device) {
  catalogVerdict = CatalogResult::CatalogFileError;
  ModuleWide& wide = moduleWide();
  const std::unique_ptr<XmlTree> tree = platform_.createXmlTree();
  const std::u16string path =
      live(wide.FileSystem, "FileSystem").BuildPath(platform_.appPath(), u"TessaraDevices.xml");
  if (!tree->loadFile(path)) {
    showMessage(u"Fehler XML-Datei!", MessageStyle::Error);
    return CatalogResult::CatalogFileError;
  }
  const CatalogueQuestion question{VendorID, family, device, FwVersion, Language};
  const SystemFormats formats{live(wide.RegistryHelper, "RegistryHelper"), platform_.locale()};
  catalogVerdict = findInCatalogue(*tree, question, formats, *this);
  return *catalogVerdict;
}

}  // namespace tessara
