"""snippets.py PAGE FILE...: writes each block of C++ on the page to its own file."""

import pathlib
import re
import sys

BLOCK = re.compile(r"^ *```cpp\n(.*?)^ *```$", re.M | re.S)

page, *files = map(pathlib.Path, sys.argv[1:])
text = page.read_text("utf-8")
blocks = list(BLOCK.finditer(text))
if len(blocks) != len(files):
    sys.exit(f"{page}: {len(blocks)} complete blocks of C++, not {len(files)}")
for block, file in zip(blocks, files):
    line = text.count("\n", 0, block.start(1)) + 1
    file.write_text(f'#line {line} "{page}"\n{block[1]}', "utf-8")
