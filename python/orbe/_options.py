# SPDX-License-Identifier: GPL-3.0-or-later
"""Keyword arguments as the options of freecut: their names, their values, and what its help says."""

import difflib
import inspect
import json
import os
from dataclasses import dataclass

from . import _native

_LEFT_OUT = {
    # Nothing is printed, and help() says more.
    "help", "quiet",
    # What info() returns tells it.
    "check",
    # boolean() takes the operation by its name.
    "union", "intersect", "subtract", "split",
}


@dataclass(frozen=True)
class Option:
    """An option of a sub-command."""

    name: str
    value: str
    repeats: bool
    choices: tuple
    help: str

    @property
    def keyword(self):
        return self.name.replace("-", "_")

    @property
    def is_switch(self):
        return not self.value


def _read():
    commands = {}
    for command, texts in json.loads(_native.describe_commands()).items():
        options = []
        for each in texts["options"]:
            name = each["name"].lstrip("-")
            if name not in _LEFT_OUT:
                options.append(Option(name, each["value"], each["repeats"], tuple(each["choices"]), each["help"]))
        commands[command] = {option.keyword: option for option in options}
    return commands


COMMANDS = _read()


def _is_list(value):
    return not isinstance(value, (str, bytes, os.PathLike)) and hasattr(value, "__iter__")


def _text(value):
    if isinstance(value, (str, os.PathLike)):
        return os.fspath(value)
    if isinstance(value, int) and not isinstance(value, bool):
        return str(value)
    if isinstance(value, bool):
        raise TypeError("a switch is given where a value is expected")
    # The shortest text that gives the same number.
    return repr(float(value))


def _texts(option, value):
    """What stands behind the option on a command line, for each time that it is given."""
    if not _is_list(value):
        return [_text(value)]
    rows = list(value)
    if any(_is_list(row) for row in rows):
        joined = [",".join(_text(number) for number in row) for row in rows]
        return [";".join(joined)] if ";" in option.value else joined
    # Three numbers may be one point.
    if option.repeats and ("," not in option.value or all(isinstance(row, str) for row in rows)):
        return [_text(each) for each in rows]
    return [",".join(_text(each) for each in rows)]


def _words(option, value, function):
    if option.is_switch:
        if not isinstance(value, bool):
            raise TypeError(f"{function}(): {option.keyword} is True or False.")
        return [f"--{option.name}"] if value else []
    try:
        return [f"--{option.name}={text}" for text in _texts(option, value)]
    except (TypeError, ValueError) as error:
        raise TypeError(f"{function}(): {option.keyword} takes {option.value}: {error}.") from None


def words_of(command, keywords, function):
    """The words of a command line for keyword arguments. None leaves an option out."""
    options = COMMANDS[command]
    words = []
    for keyword, value in keywords.items():
        if keyword not in options:
            near = difflib.get_close_matches(keyword, options, 1)
            hint = f" Did you mean {near[0]}?" if near else ""
            raise TypeError(f"{function}() has no argument {keyword}.{hint}")
        if value is not None:
            words += _words(options[keyword], value, function)
    return words


_TYPES = {"N": "int", "FILE": "str | os.PathLike[str]", "FILE|-": "str | os.PathLike[str]",
          "DIR": "str | os.PathLike[str]", "N|all": "int | str | Sequence[int]",
          "PATTERN": "str", "STYLE:EDGE,...;...": "str"}


def type_of(option):
    """The type of an argument, as a stub writes it."""
    if option.is_switch:
        return "bool"
    if option.choices:
        return "Literal[" + ", ".join(f'"{choice}"' for choice in option.choices) + "]"
    if option.value in _TYPES:
        return _TYPES[option.value]
    if "|PATTERN" in option.value:
        return "str | tuple[str, str]"
    if ";" in option.value:
        return "_Points | str"
    if option.repeats and "," in option.value:
        return "_Points | Sequence[float] | str"
    if "," in option.value:
        return "Sequence[float] | str"
    return "float | str"


def signature_of(command, parameters):
    """The signature of a function: its own parameters, then the options by keyword."""
    kind = inspect.Parameter.KEYWORD_ONLY
    options = [inspect.Parameter(keyword, kind, default=None) for keyword in COMMANDS[command]]
    return inspect.Signature([*parameters, *options, inspect.Parameter("progress", kind, default=None)])


def help_of(command):
    """The options with what freecut says of them, for a docstring."""
    lines = []
    for keyword, option in COMMANDS[command].items():
        value = "True" if option.is_switch else "|".join(option.choices) or option.value
        lines += [f"{keyword} : {value}", f"    {option.help}"]
    return "\n".join(lines)
