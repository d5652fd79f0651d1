#!/usr/bin/env python3
"""Writes a ninja file that runs clang-tidy once per source file, and again when it or one of its headers changes.

usage: lint_ninja.py BUILD_FOLDER FOLDER...

BUILD_FOLDER holds compile_commands.json, which is cut down to one command per source, and gets lint.ninja; each FOLDER
of the tree is looked through for sources. A source that no target compiles is an error: it would never be looked at.
What Qt's moc makes of a source that includes it is made first; nothing else is built.
"""
import json
import pathlib
import re
import shlex
import subprocess
import sys

RULES = """builddir = {build}
rule tidy
  command = {{ clang-tidy --quiet -p {build} $in 2>$out.log || {{ cat $out.log; false; }}; }} && $preprocess -MM -MT $out -MF $out.d $in && touch $out
  depfile = $out.d
  deps = gcc
  description = clang-tidy $in
rule moc
  command = {moc} $in -o $out
"""


def one_command_each(path):
    """The command of each source. The file keeps just these: clang-tidy looks at a source once per command in it."""
    entry_of = {entry["file"]: entry for entry in json.loads(path.read_text(encoding="utf-8"))}
    path.write_text(json.dumps(list(entry_of.values())), encoding="utf-8")
    return {source: entry["command"] for source, entry in entry_of.items()}


def preprocessor(command):
    """The compiler of a compile command with its macros and include folders, and nothing else."""
    words = shlex.split(command)
    kept = [words[0]]
    for word, following in zip(words, words[1:] + [""]):
        if word == "-isystem":
            kept += [word, following]
        elif word.startswith(("-I", "-D", "-std=", "-f")):
            kept.append(word)
    return shlex.join(kept)


def moc_program():
    asked = subprocess.run(["qtpaths6", "--query", "QT_INSTALL_LIBEXECS"], check=True, capture_output=True, text=True)
    return asked.stdout.strip() + "/moc"


def moc_file(source, command):
    """What moc makes of a source: where the compiler will look for it, or nothing if it is not included."""
    name = pathlib.Path(source).stem + ".moc"
    if f'#include "{name}"' not in pathlib.Path(source).read_text(encoding="utf-8"):
        return None
    return re.search(r"-I(\S+_autogen/include)\b", command)[1] + "/" + name


def checks(source):
    """The files that say what is checked in a source: those of its folder and of the ones above."""
    found = (folder / ".clang-tidy" for folder in pathlib.Path(source).parents)
    return [str(path) for path in found if path.exists()]


def ninja(text):
    return text.replace("$", "$$")


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    sources = sorted(str(path.resolve()) for folder in sys.argv[2:] for path in pathlib.Path(folder).rglob("*.cpp"))
    command_of = one_command_each(build / "compile_commands.json")
    unbuilt = [source for source in sources if source not in command_of]
    if unbuilt:
        sys.exit("No target compiles " + ", ".join(unbuilt))

    root = pathlib.Path.cwd()
    with open(build / "lint.ninja", "w", encoding="utf-8") as out:
        out.write(RULES.format(build=ninja(str(build)), moc=ninja(moc_program())))
        for source in sources:
            stamp = build / "lint" / pathlib.Path(source).relative_to(root).with_suffix(".ok")
            made = moc_file(source, command_of[source])
            if made:
                out.write(f"build {ninja(made)}: moc {ninja(source)}\n")
            first = f" || {ninja(made)}" if made else ""
            settings = " ".join(map(ninja, checks(source)))
            out.write(f"build {ninja(str(stamp))}: tidy {ninja(source)} | {settings}{first}\n")
            out.write(f"  preprocess = {ninja(preprocessor(command_of[source]))}\n")


main()
