"""The manufacturer's data set when configuring appears everywhere, whatever characters it contains."""

import pathlib
import re
import tempfile
import unittest
import xml.etree.ElementTree

from staging import COMPILER, ROOT, run

COMPANY = 'Müller & Søn "<Mess>" GmbH'
VALUES = {
    "TESSARA_MAKER_COMPANY": COMPANY, "TESSARA_MAKER_ADDRESS1": "c:\\1 & 2",
    "TESSARA_MAKER_MAIL": "hello@mess.example", "TESSARA_MAKER_WEB": "http://mess.example/a?b&c",
    "TESSARA_MAKER_YEAR": "2031", "TESSARA_MAKER_VERSION": "7 \"beta\"",
    "TESSARA_MAKER_LICENSE": "MIT", "TESSARA_APPSTREAM_ID": "example.mess.modulinfo_panel",
}
TERMS = "First line.\n\n  Third line.\n"

# Prints the values of variables after including a file.
PRINT = """
include("{file}")
foreach(name {names})
  message(STATUS "${{name}}=${{${{name}}}}")
endforeach()
"""


class Maker(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # pylint: disable-next=consider-using-with
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.build = cls.folder / "build"
        terms = cls.folder / "terms.txt"
        terms.write_text(TERMS, "utf-8")
        values = VALUES | {"TESSARA_MAKER_LICENSE_FILE": terms, "BUILD_TESTING": "OFF",
                           "CMAKE_CXX_COMPILER": COMPILER}
        run("cmake", "-G", "Ninja", "-S", ROOT, "-B", cls.build,
            *(f"-D{name}={value}" for name, value in values.items()))

    def text(self, name):
        return (self.build / name).read_text("utf-8")

    def values(self, file, *names):
        script = self.folder / "print.cmake"
        script.write_text(PRINT.format(file=file, names=" ".join(names)), "utf-8")
        return dict(re.findall(r"^-- (\w+)=(.*)$", run("cmake", "-P", script), re.M))

    def test_the_about_box_shows_the_data(self):
        source = self.text("src/Maker.cpp")
        for name in ("COMPANY", "ADDRESS1", "MAIL", "WEB", "YEAR", "VERSION"):
            self.assertIn(f'uR"maker({VALUES[f"TESSARA_MAKER_{name}"]})maker"', source)

    def test_software_catalogues_show_the_data(self):
        page = self.build / "packaging/example.mess.modulinfo_panel.metainfo.xml"
        self.assertIn("successful", run("appstreamcli", "validate", "--no-net", page))
        component = xml.etree.ElementTree.parse(page)
        self.assertEqual(component.findtext("developer_name"), COMPANY)
        self.assertEqual(component.findtext("url"), "http://mess.example/a?b&c")
        self.assertEqual(component.findtext("project_license"), "MIT")
        self.assertEqual(component.findtext("id"), "example.mess.modulinfo_panel")

    def test_the_packages_show_the_data(self):
        values = self.values(self.build / "CPackConfig.cmake", "CPACK_PACKAGE_VENDOR",
                         "CPACK_PACKAGE_CONTACT", "CPACK_DEBIAN_PACKAGE_HOMEPAGE")
        self.assertEqual(values, {"CPACK_PACKAGE_VENDOR": COMPANY,
                                  "CPACK_PACKAGE_CONTACT": f"{COMPANY} <hello@mess.example>",
                                  "CPACK_DEBIAN_PACKAGE_HOMEPAGE": "http://mess.example/a?b&c"})

    def test_the_packages_contain_the_terms(self):
        text = self.text("packaging/debian/copyright")
        self.assertIn(f"Copyright: 2031 {COMPANY}\n", text)
        self.assertTrue(text.endswith("\nLicense: MIT\n First line.\n .\n   Third line.\n"), text)

    def test_default_values_are_recognisable_as_samples(self):
        names = [f"TESSARA_MAKER_{name}" for name in ("COMPANY", "ADDRESS1", "ADDRESS2", "VERSION",
                                                      "LICENSE", "LICENSE_FILE")]
        for name, value in self.values(ROOT / "cmake/Maker.cmake", *names).items():
            self.assertRegex(value, "(?i)sample", name)
        names = ["TESSARA_MAKER_MAIL", "TESSARA_MAKER_WEB", "TESSARA_MAKER_HOMEPAGE"]
        for name, value in self.values(ROOT / "cmake/Maker.cmake", *names).items():
            self.assertTrue(value.endswith(".example"), name)


if __name__ == "__main__":
    unittest.main()
