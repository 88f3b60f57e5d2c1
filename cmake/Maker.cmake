# The manufacturer of the product and its licence, as the about box and the packages show them. Set these
# when configuring, for example with -DTESSARA_MAKER_COMPANY="...". The sample values must be recognisable
# as samples.

set(TESSARA_MAKER_COMPANY "Sample Company" CACHE STRING "Name of the manufacturer")
set(TESSARA_MAKER_ADDRESS1 "Sample Street 1" CACHE STRING "First line of the manufacturer's address")
set(TESSARA_MAKER_ADDRESS2 "00000 Sample Town" CACHE STRING "Second line of the manufacturer's address")
set(TESSARA_MAKER_PHONE "+00 000 0000-0" CACHE STRING "Phone number of the manufacturer")
set(TESSARA_MAKER_FAX "+00 000 0000-1" CACHE STRING "Fax number of the manufacturer")
set(TESSARA_MAKER_MAIL "info@maker.example" CACHE STRING "Mail address of the manufacturer")
set(TESSARA_MAKER_WEB "www.maker.example" CACHE STRING "Web address of the manufacturer")
set(TESSARA_MAKER_YEAR "2026" CACHE STRING "Year in the about box")
set(TESSARA_MAKER_VERSION "${PROJECT_VERSION} (sample)" CACHE STRING "Version that modulinfo-panel shows in the about box")
set(TESSARA_MAKER_LICENSE "LicenseRef-sample" CACHE STRING
    "Licence of the packages: an SPDX expression, LicenseRef-... for the manufacturer's own terms")
set(TESSARA_MAKER_LICENSE_FILE "${CMAKE_CURRENT_LIST_DIR}/../packaging/debian/licence-sample.txt" CACHE FILEPATH
    "Text file with the terms of that licence")
set(TESSARA_APPSTREAM_ID "example.maker.modulinfo_panel" CACHE STRING
    "Name under which software catalogues know modulinfo-panel")

# The web address may have been given without a scheme.
set(TESSARA_MAKER_HOMEPAGE "${TESSARA_MAKER_WEB}")
if(NOT TESSARA_MAKER_WEB MATCHES "://")
  string(PREPEND TESSARA_MAKER_HOMEPAGE "https://")
endif()
