# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the module's type stub: python3 -m orbe._stub FILE. Options are those that the command line has."""

import sys

from . import _options

_HEAD = '''# Made by orbe._stub.
import os
from collections.abc import Callable, Iterable, Sequence
from typing import Any, Literal, Protocol, overload

import numpy
from numpy.typing import ArrayLike, NDArray

__all__: list[str]

_Progress = Callable[[int, str], object]
_Points = Sequence[Sequence[float]] | NDArray[Any]

class _Mesh(Protocol):
    @property
    def vertices(self) -> Any: ...
    @property
    def faces(self) -> Any: ...

_Part = Part | str | os.PathLike[str] | _Mesh

class Error(Exception):
    report: dict[str, Any]
    pieces: Sequence[Part]

class UsageError(Error, ValueError): ...
class FileError(Error, OSError): ...
class CutError(Error): ...
class OpenPieceError(CutError): ...

class Part:
    def __init__(self, vertices: ArrayLike, faces: ArrayLike, name: str = ...) -> None: ...
    @property
    def name(self) -> str: ...
    @property
    def file(self) -> str | None: ...
    @property
    def vertices(self) -> NDArray[numpy.float32]: ...
    @property
    def faces(self) -> NDArray[numpy.uint32]: ...
    def write(self, file: str | os.PathLike[str], *, format: str | None = ..., force: bool = ...,
              progress: _Progress | None = ...) -> None: ...

class Pieces(Sequence[Part]):
    by_part: list[list[Part]]
    report: dict[str, Any]
    remarks: list[str]
    @overload
    def __getitem__(self, index: int) -> Part: ...
    @overload
    def __getitem__(self, index: slice) -> list[Part]: ...
    def __len__(self) -> int: ...

def read(file: str | os.PathLike[str], *, unit: Literal["mm", "cm", "m", "inch"] | None = ...,
         scale: float | None = ..., progress: _Progress | None = ...) -> list[Part]: ...
'''

_PARTS = "parts: _Part | Iterable[_Part]"
_FUNCTIONS = {
    "cut_plane": ("zcut", _PARTS, "Pieces"),
    "section": ("section", _PARTS, "Pieces"),
    "polygon": ("polygon", _PARTS, "Pieces"),
    "cylinder": ("cylinder", _PARTS, "Pieces"),
    "cuboid": ("cuboid", _PARTS, "Pieces"),
    "repair": ("repair", _PARTS, "Pieces"),
    "boolean": ("boolean", 'a: _Part, b: _Part, operation: Literal["union", "intersect", "subtract", "split"]', "Pieces"),
    "info": ("info", _PARTS, "Any"),
}


def stub():
    """The text of the stub."""
    text = _HEAD
    for function, (command, positional, result) in _FUNCTIONS.items():
        lines = [f"    {keyword}: {_options.type_of(option)} | None = ...,"
                 for keyword, option in _options.COMMANDS[command].items()]
        text += f"\ndef {function}(\n    {positional}, *,\n" + "\n".join(lines)
        text += f"\n    progress: _Progress | None = ...,\n) -> {result}: ...\n"
    return text


if __name__ == "__main__":
    with open(sys.argv[1], "w", encoding="utf-8") as file:
        file.write(stub())
