"""Holds README and the pages against the tree: the add-in of the README is the one that the tests build, links lead
somewhere, and the pages of the subsystems show pictures, each of which is there.

Usage: docs_test.py SOURCE_TREE
"""
import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
PAGES = [SOURCE / 'README.md', SOURCE / 'CONTRIBUTING.md', *sorted((SOURCE / 'docs').rglob('*.md'))]
IMAGES = SOURCE / 'docs/images'

# Pages of what can be looked at.
WITH_PICTURES = 'controls credits helpers host list-control menus velmmenu xml'.split()


def text_of(path):
    return path.read_text(encoding='utf-8')


def links_of(page):
    """The targets of a page's links and pictures, code left out."""
    prose = re.sub(r'^( *)```.*?^\1```$', '', text_of(page), flags=re.S | re.M)
    return re.findall(r'\]\(([^)\s]+)\)', prose)


class Pages(unittest.TestCase):
    def test_the_add_in_of_the_readme_is_the_one_that_is_built(self):
        blocks = dict(re.findall(r'^`myaddin/([\w.]+)`:\n\n```\w+\n(.*?)^```$', text_of(SOURCE / 'README.md'),
                                 flags=re.S | re.M))
        self.assertEqual(sorted(blocks), ['CMakeLists.txt', 'MyAddin.cpp', 'MyAddin.rc', 'menus.xml', 'resource.h'])
        for name, code in blocks.items():
            built = text_of(SOURCE / 'tests/consumer' / name)
            if name == 'CMakeLists.txt':  # the tests build more
                self.assertTrue(built.startswith(code + '\n'), f'{code}\nis not how {name} begins')
            else:
                self.assertEqual(code, built)

    def test_links_lead_to_files_of_the_tree(self):
        checked = 0
        for page in PAGES:
            for link in links_of(page):
                if '://' in link or link.startswith('#'):
                    continue
                checked += 1
                target = page.parent / link.split('#')[0]
                self.assertTrue(target.exists(), f'{page.relative_to(SOURCE)} links to {link}')
        self.assertGreater(checked, 50)

    def test_each_subsystem_has_a_page_with_a_picture(self):
        for name in WITH_PICTURES:
            pictures = [link for link in links_of(SOURCE / f'docs/{name}.md') if link.startswith('images/')]
            self.assertTrue(pictures, f'docs/{name}.md shows no picture')

    def test_every_picture_is_shown_somewhere(self):
        shown = {(page.parent / link).resolve() for page in PAGES for link in links_of(page)}
        for picture in IMAGES.iterdir():
            self.assertIn(picture, shown)


if __name__ == '__main__':
    unittest.main(verbosity=2)
