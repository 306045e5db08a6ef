#!/usr/bin/env python3
r"""Runs a program on a terminal of its own, types keys, and draws what stands there as SVG.

    dev/terminal-picture.py [--size 96x20] [--keys '/Value = 4k7\r'] OUT.svg COMMAND...

Keys may hold the escapes of Python texts; they are typed piece by piece, parted by a blank line
("\n\n"), each once the screen is quiet. Needs Debian's python3-pyte, which knows what a terminal
does with the bytes. The picture of docs/tool.md, where 'utility db make-passives' has been run:

    utility db rules set Passives Value=any
    utility db map set Passives --column Tolerance show=no
    utility db map set Passives --column Name map-to=PartName
    dev/terminal-picture.py --size 92x18 \
        --keys '/Value between 4k7 10k\r\n\nsValue\r\n\n\x1b[B\x1b[B' \
        docs/db-browse.svg utility db browse Passives
"""

import argparse
import fcntl
import html
import os
import pty
import select
import signal
import struct
import termios

import pyte

QUIET = 0.7  # seconds without output after which the screen counts as finished
CELL_WIDTH, CELL_HEIGHT, MARGIN = 8.4, 18, 12
BACKGROUND, FOREGROUND = "#1b1f27", "#d7dae0"
COLOURS = {"black": "#1b1f27", "cyan": "#7fd1d8", "blue": "#6ea8fe", "default": FOREGROUND}


def read_until_quiet(terminal, stream):
    while select.select([terminal], [], [], QUIET)[0]:
        try:
            stream.feed(os.read(terminal, 65536))
        except OSError:  # the program has ended
            return


def record(command, columns, lines, keys):
    """The screen after all keys."""
    screen = pyte.Screen(columns, lines)
    stream = pyte.ByteStream(screen)
    process, terminal = pty.fork()
    if process == 0:
        os.environ.update(TERM="linux", LC_ALL="C.UTF-8")
        os.execvp(command[0], command)
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", lines, columns, 0, 0))
    read_until_quiet(terminal, stream)
    for piece in keys:
        os.write(terminal, piece.encode())
        read_until_quiet(terminal, stream)
    os.kill(process, signal.SIGKILL)
    os.waitpid(process, 0)
    return screen


def colours(cell):
    text = COLOURS.get(cell.fg, FOREGROUND)
    ground = BACKGROUND if cell.bg == "default" else COLOURS.get(cell.bg, BACKGROUND)
    return (ground, text) if cell.reverse else (text, ground)


def runs(line, columns):
    """(first column, text, style) of each stretch of one style."""
    start, text, style = 0, "", None
    for column in range(columns):
        cell = line[column]
        now = (*colours(cell), cell.bold, cell.underscore)
        if now != style and text:
            yield start, column, text, style
            start, text = column, ""
        style = now
        text += cell.data
    yield start, columns, text, style


def draw_run(row, start, end, text, style):
    colour, ground, is_bold, is_underlined = style
    x, y = MARGIN + start * CELL_WIDTH, MARGIN + row * CELL_HEIGHT
    width = (end - start) * CELL_WIDTH
    parts = []
    if ground != BACKGROUND:
        parts.append(f'<rect x="{x:.1f}" y="{y}" width="{width:.1f}" height="{CELL_HEIGHT}"'
                     f' fill="{ground}"/>')
    if is_underlined:
        parts.append(f'<rect x="{x:.1f}" y="{y + CELL_HEIGHT - 2}" width="{width:.1f}" height="1"'
                     f' fill="{colour}"/>')
    if text.strip():
        weight = ' font-weight="bold"' if is_bold else ""
        parts.append(f'<text x="{x:.1f}" y="{y + 13}" fill="{colour}"{weight}'
                     f' textLength="{width:.1f}" lengthAdjust="spacingAndGlyphs">'
                     f"{html.escape(text)}</text>")
    return parts


def draw(screen):
    width = screen.columns * CELL_WIDTH + 2 * MARGIN
    height = screen.lines * CELL_HEIGHT + 2 * MARGIN
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" height="{height:.0f}"'
             f' font-family="DejaVu Sans Mono, Consolas, Menlo, monospace" font-size="14"'
             ' xml:space="preserve">',
             f'<rect width="100%" height="100%" rx="8" fill="{BACKGROUND}"/>']
    for row in range(screen.lines):
        for run in runs(screen.buffer[row], screen.columns):
            parts += draw_run(row, *run)
    return "\n".join(parts + ["</svg>", ""])


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("picture")
    parser.add_argument("--size", default="96x20", help="columns x lines")
    parser.add_argument("--keys", default="")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    columns, lines = map(int, options.size.split("x"))
    keys = options.keys.encode().decode("unicode_escape").split("\n\n") if options.keys else []
    screen = record(options.command, columns, lines, keys)
    with open(options.picture, "w", encoding="utf-8") as picture:
        picture.write(draw(screen))


if __name__ == "__main__":
    main()
