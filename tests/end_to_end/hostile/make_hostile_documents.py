"""Writes documents that try to bring other files of their user into the PDF, each in one way, named after it.

    make_hostile_documents.py FOLDER

FOLDER/secret holds what they are after, FOLDER/documents the documents. Standard library only.
"""

import sys
from pathlib import Path

import open_document
import rich_text
import secrets_of_the_user
import web_page
import word_document

FORMATS = [(open_document, "fodt"), (word_document, "docx"), (rich_text, "rtf"), (web_page, "html")]


def main():
    folder = Path(sys.argv[1]).resolve()
    secrets_of_the_user.write(folder / "secret")
    documents = folder / "documents"
    documents.mkdir()
    for format_, ending in FORMATS:
        for name, content in format_.ways(lambda file: (folder / "secret" / file).as_uri()):
            path = documents / f"{name}.{ending}"
            if path.exists():
                sys.exit(f"two ways are called {path.name}")
            path.write_bytes(content.encode() if isinstance(content, str) else content)


main()
