"""docs/python.md: every piece of Python in it is run, in order, in a folder with the sample books."""
import contextlib
import doctest
import os
import re
import tempfile
import unittest

from small_books import ROOT, run_program


class Page(unittest.TestCase):
    def test_what_it_shows_is_so(self):
        page = (ROOT / "docs/python.md").read_text(encoding="utf-8")
        pieces = re.findall(r"^```python\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)
        self.assertGreater(len(pieces), 4)
        told = []
        with tempfile.TemporaryDirectory() as folder, contextlib.chdir(folder):
            run_program("books", "sample", "books.db")
            piece = doctest.DocTestParser().get_doctest("".join(pieces), {}, "docs/python.md", None, 0)
            result = doctest.DocTestRunner(verbose=False).run(piece, out=told.append)
            self.assertEqual(result.failed, 0, "".join(told))
            self.assertGreater(os.path.getsize("sales.html"), 1000)


if __name__ == "__main__":
    unittest.main()
