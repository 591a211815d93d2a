"""Types into an interactive zsh that has foliant's completion, presses Tab, and prints what then stands there.

    complete_in_zsh.py FOLDER LINE...     FOLDER holds the script under the name _foliant
"""

import os
import pty
import re
import select
import sys
import time

SETUP = """PS1=; unsetopt zle_bracketed_paste prompt_cr; fpath=({folder} $fpath); autoload -U compinit; compinit -u -D
press() {{ zle complete-word; print -r -- "<${{BUFFER}}>" }}; zle -N press; bindkey '^X' press; print REA''DY
"""


def read_until(terminal, end, seconds=30):
    text, give_up = "", time.time() + seconds
    while end not in text and time.time() < give_up:
        if select.select([terminal], [], [], 0.2)[0]:
            text += os.read(terminal, 65536).decode(errors="replace")
    return text


def main():
    process, terminal = pty.fork()
    if process == 0:
        os.environ.update(TERM="dumb", COLUMNS="200")
        os.execvp("zsh", ["zsh", "-f", "-i"])
    os.write(terminal, SETUP.format(folder=sys.argv[1]).encode())
    read_until(terminal, "READY\r\n")
    for line in sys.argv[2:]:
        os.write(terminal, line.encode() + b"\x18")
        found = re.search(r"<(foliant.*?)>", read_until(terminal, ">"))
        print(found.group(1).rstrip() if found else "nothing")
        os.write(terminal, b"\x15")
    os.close(terminal)


main()
