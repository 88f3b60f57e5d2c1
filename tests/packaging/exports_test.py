"""The shared library exports what its headers declare, and nothing else."""

import re
import unittest

from staging import Staged, run

# Symbols that a host needs when it is built, not to call something.
DATA_OF_CLASS = re.compile(r"(vtable|typeinfo|typeinfo name) for tessara::(?P<name>\w+)$"
                           r"|non-virtual thunk to tessara::(?P<thunk>\w+)::")
FUNCTION = re.compile(r"tessara::(?:(?P<owner>\w+)::)?~?(?P<name>\w+)(\[abi:cxx11\])?(\(|$)")


class Exports(Staged):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        listing = run("nm", "--dynamic", "--demangle", "--defined-only", cls.library)
        cls.symbols = sorted({line.split(" ", 2)[2] for line in listing.splitlines()})
        headers = cls.prefix / "include/tessara-modulinfo"
        cls.headers = {path.relative_to(headers).as_posix(): path.read_text("utf-8")
                       for path in headers.rglob("*.h")}

    def public_part(self, name):
        """The public and protected part of a class in the headers; None if it is not there."""
        for text in self.headers.values():
            found = re.search(rf"^(class|struct) {name}\b[^;]*?{{(.*?)^}};", text, re.M | re.S)
            if found:
                return found[2].split("\n private:")[0]
        return None

    def test_exports_nothing_but_what_the_headers_declare(self):
        self.assertGreater(len(self.symbols), 100)
        for symbol in self.symbols:
            data = DATA_OF_CLASS.match(symbol)
            if data:
                self.assertIsNotNone(self.public_part(data["name"] or data["thunk"]), symbol)
                continue
            function = FUNCTION.match(symbol)
            self.assertIsNotNone(function, symbol)
            offer = (self.public_part(function["owner"]) if function["owner"]
                     else "\n".join(self.headers.values()))
            self.assertIsNotNone(offer, symbol)
            made_by_qt = function["name"] in ("metaObject", "staticMetaObject", "qt_metacast",
                                              "qt_metacall") and "Q_OBJECT" in offer
            self.assertTrue(made_by_qt or re.search(rf"\b{function['name']}\b", offer), symbol)

    def test_exports_every_property_and_method_of_the_control(self):
        offered = set(re.findall(r"\b(get_\w+|put_\w+|UserControl_\w+)\(",
                                 self.public_part("ModulInfoFLII")))
        self.assertGreater(len(offered), 60)
        exported = {match["name"] for match in map(FUNCTION.match, self.symbols) if match}
        self.assertEqual(offered - exported, set())

    def test_hosts_load_it_by_its_abi_number(self):
        dynamic = run("readelf", "--dynamic", self.library)
        soname = re.search(r"\(SONAME\).*\[(.+)\]", dynamic)[1]
        self.assertRegex(soname, r"^libTESSARAModulInfo\.so\.\d+$")
        self.assertEqual((self.libraries / soname).resolve(), self.library)

    def test_headers_include_only_installed_headers(self):
        own = set(self.headers)
        for name, text in self.headers.items():
            for included in re.findall(r'#include "([^"]+)"', text):
                self.assertIn(included, own, name)


if __name__ == "__main__":
    unittest.main()
