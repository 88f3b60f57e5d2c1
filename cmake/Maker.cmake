# Who makes the product that is being built: what the about box shows. Set it when configuring, for
# example with -DTESSARA_MAKER_COMPANY="...". Nobody should mistake the sample values for real ones.

set(TESSARA_MAKER_COMPANY "Sample Company" CACHE STRING "Name of the maker")
set(TESSARA_MAKER_ADDRESS1 "Sample Street 1" CACHE STRING "First line of the maker's address")
set(TESSARA_MAKER_ADDRESS2 "00000 Sample Town" CACHE STRING "Second line of the maker's address")
set(TESSARA_MAKER_PHONE "+00 000 0000-0" CACHE STRING "Phone number of the maker")
set(TESSARA_MAKER_FAX "+00 000 0000-1" CACHE STRING "Fax number of the maker")
set(TESSARA_MAKER_MAIL "info@maker.example" CACHE STRING "Mail address of the maker")
set(TESSARA_MAKER_WEB "www.maker.example" CACHE STRING "Web address of the maker")
set(TESSARA_MAKER_YEAR "2026" CACHE STRING "Year in the about box")
set(TESSARA_MAKER_VERSION "${PROJECT_VERSION} (sample)" CACHE STRING "Version that modulinfo-panel shows in the about box")
