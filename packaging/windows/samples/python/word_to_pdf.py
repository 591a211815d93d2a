"""Converts a Word document to PDF, showing Distiller's progress.

    py word_to_pdf.py letter.docx letter.pdf [PAGES]

PAGES as Word writes them, such as 1-3,5; all of them when left out. Ends with 1 when there is no PDF. Needs pywin32
(py -m pip install pywin32), and Foliant in the word size of this Python.
"""

import os
import sys

import pythoncom
import win32com.client


class Progress:
    """What Distiller tells while it works."""

    def OnPercentDone(self, percent):
        print(f"{percent}%")

    def OnLogMessage(self, message):
        print(message)

    def OnJobFail(self, postscript, output):
        print(f"The Distiller job for {output} has failed.")


def error_text(error):
    """A failure with the number, the source and the description that a Visual Basic program would see."""
    number, text, details, _ = error.args
    if details is None:  # the object was not created, or the call did not reach it
        return f"Error {number}: {text}"
    _, source, description, _, _, number = details
    return f"Error {number} from {source}: {description}"


def main(arguments):
    if len(arguments) not in (2, 3):
        print("Usage: py word_to_pdf.py DOCUMENT PDF [PAGES]")
        return 2
    # Word has a current folder of its own, so it is given whole paths.
    document, target = map(os.path.abspath, arguments[:2])
    pages = arguments[2] if len(arguments) == 3 else ""
    try:
        pdf = win32com.client.DispatchWithEvents("Foliant.BuildPDF", Progress)
        pdf.CreatePDFfromWord(target, document, strPages=pages)
    except pythoncom.com_error as error:
        print(error_text(error))
        return 1
    # Distiller tells of a failed job by an event, not by an error.
    if not os.path.exists(target):
        print(f"Distiller has made no PDF; its log beside {target} says why.")
        return 1
    print(f"Wrote {target}")
    return 0


sys.exit(main(sys.argv[1:]))
