"""The checks of the tree find what they are there for, and let good text pass."""
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import check_dll_imports  # noqa: E402
import check_house  # noqa: E402
import check_layers  # noqa: E402
import tree  # noqa: E402


class LayersTest(unittest.TestCase):
    def faults(self, name, text):
        return check_layers.faults_of_source(pathlib.PurePosixPath(name), text)

    def test_downwards_is_fine(self):
        text = '#include "nuv64/data/x.h"\n#include <vector>\n#include "core/y.h"\n#include "data/z.h"\n'
        self.assertEqual(self.faults("src/data/x.cpp", text), [])
        self.assertEqual(self.faults("src/platform/posix/x.cpp", "#include <unistd.h>\n"), [])
        self.assertEqual(self.faults("include/nuv64/core/x.h", "#include <stdint.h>\n"), [])

    def test_faults(self):
        for name, text in (("src/core/x.cpp", '#include "data/z.h"\n'),
                           ("src/core/x.cpp", '#include "nuv64/data/z.h"\n'),
                           ("src/core/x.cpp", "#include <unistd.h>\n"),
                           ("src/core/x.cpp", '#include "elsewhere.h"\n'),
                           ("include/nuv64/core/x.h", "#include <vector>\n"),
                           ("include/nuv64/data/x.h", '#include "core/list.h"\n'),
                           ("src/cellar/x.cpp", "")):
            self.assertEqual(len(self.faults(name, text)), 1, (name, text))

    def test_own_header_first(self):
        name = pathlib.PurePosixPath("src/core/x.cpp")
        headers = {"nuv64/core/x.h"}
        good = '// words\n#include "nuv64/core/x.h"\n#include <vector>\n'
        bad = '#include <vector>\n#include "nuv64/core/x.h"\n'
        self.assertEqual(check_layers.fault_of_first_include(name, good, headers), [])
        self.assertEqual(len(check_layers.fault_of_first_include(name, bad, headers)), 1)

    def test_programs_use_public_headers(self):
        name = pathlib.PurePosixPath("apps/a/main.cpp")
        self.assertEqual(check_layers.faults_of_program(name, '#include "nuv64/host/command.h"\n'), [])
        self.assertEqual(len(check_layers.faults_of_program(name, '#include "core/list.h"\n')), 1)


class HouseTest(unittest.TestCase):
    def test_number_text_outside_its_module(self):
        for code in ("x = strtod(p, &e);", "sscanf(p, f);", "#include <sstream>", "std::stod(s);",
                     "x = atof(p);", 'snprintf(b, n, "%d %8.3f", i, x);', 'setlocale(0, "");'):
            self.assertEqual(len(check_house.faults_of_source("src/data/x.cpp", code)), 1, code)
            self.assertEqual(check_house.faults_of_source("src/core/number_text.cpp", code), [], code)
            self.assertEqual(check_house.faults_of_source("src/data/x.cpp", "// " + code), [], code)

    def test_everywhere_in_source(self):
        for code in ("long double x;", "y = std::fma(a, b, c);"):
            self.assertEqual(len(check_house.faults_of_source("src/core/number_text.cpp", code)), 1)
        self.assertEqual(len(check_house.faults_of_source("src/core/x.cpp", "wchar_t c;")), 1)
        self.assertEqual(check_house.faults_of_source("src/platform/windows/x.cpp", "wchar_t c;"), [])

    def test_words(self):
        for text in ("as the " + "specification says", "see Part " + "4.2", "TO" + "DO: later"):
            self.assertEqual(len(check_house.faults_of_text("a.cpp", text)), 1, text)
        for text in ("the special case", "the specified width", "a part of it", "part 4 of 5"):
            self.assertEqual(check_house.faults_of_text("a.cpp", text), [], text)


class HelpersTest(unittest.TestCase):
    def test_comments_are_blanked_and_strings_kept(self):
        text = 'a("// no comment"); // one\n/* two\nlines */ b(\'"\'); c("\\"//"); R"(//)"'
        stripped = tree.without_comments(text)
        self.assertIn('a("// no comment");', stripped)
        self.assertIn('b(\'"\'); c("\\"//"); R"(//)"', stripped)
        self.assertNotIn("one", stripped)
        self.assertEqual(stripped.count("\n"), text.count("\n"))

    def test_dll_imports(self):
        text = "\tDLL Name: KERNEL32.dll\n\tvma: x\n\tDLL Name: libstdc++-6.dll\n"
        imports = check_dll_imports.imports_of(text)
        self.assertEqual(imports, ["KERNEL32.dll", "libstdc++-6.dll"])
        self.assertIn("kernel32", check_dll_imports.SYSTEM)


if __name__ == "__main__":
    unittest.main()
