# SPDX-License-Identifier: GPL-3.0-or-later
"""Cuts triangle meshes for 3D printing: what freecut does, on parts in memory. All lengths are millimetres.

    upper, lower = orbe.cut_plane("bracket.stl", height=12.5)
    upper.vertices    # float32, n x 3
    upper.faces       # uint32, m x 3

A part is a Part, the name of a file, or an object with vertices and faces.
"""

import inspect
import json
import os
from collections.abc import Sequence

import numpy

from . import _native, _options

__all__ = [
    "Part", "Pieces", "read", "cut_plane", "section", "polygon", "cylinder", "cuboid", "boolean", "repair", "info",
    "Error", "UsageError", "FileError", "CutError", "OpenPieceError",
]


class Error(Exception):
    """A command has failed. The text is what freecut says.

    report : dict, as freecut writes it by --json; empty if it did not come to that
    pieces : Pieces that were made all the same: open ones, or with keep_going=True those of other parts
    """

    report = {}
    pieces = ()


class UsageError(Error, ValueError):
    """Arguments ask for something that cannot be; the text says what to change."""


class FileError(Error, OSError):
    """A file cannot be read or written."""


class CutError(Error):
    """A part cannot be cut like that; the text says why."""


class OpenPieceError(CutError):
    """A piece is not closed. It is in pieces; allow_open=True accepts it."""


_ERRORS = {1: CutError, 2: UsageError, 3: FileError, 4: OpenPieceError}


class Part:
    """A triangle mesh. It never changes.

    vertices : n x 3 numbers, millimetres; float32 is read where it lies
    faces    : m x 3 whole numbers of vertices from 0, anticlockwise seen from outside; int32, uint32, int64 and
               uint64 are read where they lie
    name     : what its pieces are named after

    Vertices at the same place are joined, and those that no face uses are left out.
    Raises ValueError for a face without its vertex, and for coordinates that are no finite numbers.
    """

    __slots__ = ("_native",)

    def __init__(self, vertices, faces, name="part"):
        self._native = _native.Part(numpy.asarray(vertices), numpy.asarray(faces), str(name))

    @classmethod
    def _of(cls, native):
        part = cls.__new__(cls)
        part._native = native
        return part

    @property
    def name(self):
        """The name of the part."""
        return self._native.name

    @property
    def file(self):
        """The file that it was written to by output=, or None."""
        return self._native.file or None

    @property
    def vertices(self):
        """Coordinates in millimetres: float32, n x 3, read-only. Filled at the first access, the same memory after."""
        return self._native.vertices

    @property
    def faces(self):
        """Numbers of vertices: uint32, m x 3, read-only. Filled at the first access, the same memory after."""
        return self._native.faces

    def write(self, file, *, format=None, force=False, progress=None):
        """Writes the part to a file, which appears when it is complete.

        format : "stl", "stl-ascii", "ply", "ply-ascii", "3mf", "obj" or "off"; by the name of the file if left out
        force  : replace a file that exists
        Raises FileError.
        """
        formats = next(option.choices for option in _options.COMMANDS["convert"].values() if option.name == "format")
        if format is not None and format not in formats:
            raise UsageError(f"There is no format {format!r}; there are {', '.join(formats)}.")
        complaint = _native.write(self._native, os.fspath(file), format or "", force, progress)
        if complaint:
            raise FileError(complaint)

    def __repr__(self):
        return f"<orbe.Part {self.name!r}>"


class Pieces(Sequence):
    """What a command has made: parts, in the order in which freecut numbers them.

    by_part : list of the pieces of each part that was given
    report  : dict, as freecut writes it by --json
    remarks : list of what freecut would have said, sentence by sentence
    """

    def __init__(self, by_part, report, remarks):
        self.by_part = by_part
        self.report = report
        self.remarks = remarks
        self._all = [piece for pieces in by_part for piece in pieces]

    def __getitem__(self, index):
        return self._all[index]

    def __len__(self):
        return len(self._all)

    def __repr__(self):
        return f"<orbe.Pieces {[piece.name for piece in self._all]}>"


def _input(part):
    if isinstance(part, Part):
        return part._native
    if isinstance(part, (str, os.PathLike)):
        name = os.fspath(part)
        if name == "-":
            raise UsageError("Standard input belongs to Python; give the name of a file.")
        return name
    if hasattr(part, "vertices") and hasattr(part, "faces"):
        return Part(part.vertices, part.faces)._native
    raise TypeError(f"A part is a Part, the name of a file, or has vertices and faces; {type(part).__name__} has none.")


def _is_one(parts):
    return isinstance(parts, (Part, str, os.PathLike)) or hasattr(parts, "faces")


def _inputs(parts):
    return [_input(part) for part in ([parts] if _is_one(parts) else parts)]


def _run(command, parts, options, *, function, extra=(), progress=None):
    words = [command, *extra, *_options.words_of(command, options, function)]
    outcome = _native.run(words, _inputs(parts), options.get("output") is not None, progress)
    pieces = Pieces([[Part._of(piece) for piece in each] for each in outcome["pieces"]],
                    json.loads(outcome["report"] or "{}"), outcome["remarks"])
    if outcome["status"] == 0:
        return pieces
    error = _ERRORS.get(outcome["status"], Error)("\n".join(outcome["complaints"]))
    error.report, error.pieces = pieces.report, pieces
    raise error


def _describe(function, command, *names):
    positional = inspect.Parameter.POSITIONAL_OR_KEYWORD
    function.__signature__ = _options.signature_of(command, [inspect.Parameter(name, positional) for name in names])
    function.__doc__ += f"""
    Options, all of them by keyword:

    {_options.help_of(command).replace(chr(10), chr(10) + "    ")}
    progress : called with a percentage and a title; what it raises ends the work
    """
    return function


def _cut(name, command, text):
    def cut(parts, *, progress=None, **options):
        return _run(command, parts, options, function=name, progress=progress)

    cut.__name__ = cut.__qualname__ = name
    cut.__doc__ = text + """

    parts : a Part, the name of a file, an object with vertices and faces, or a list of these
    Returns Pieces. Raises UsageError, FileError, CutError, and OpenPieceError unless allow_open=True.
    """
    return _describe(cut, command, "parts")


cut_plane = _cut("cut_plane", "zcut", """Cuts parts by a horizontal plane, at a height in millimetres, or every so many.

    The first piece of a part is the upper one.""")
section = _cut("section", "section", """Cuts parts by any plane, with pins, holes or a lap joint to join the pieces again.

    center and normal are three numbers each; the first piece lies where the normal points.""")
polygon = _cut("polygon", "polygon", """Cuts parts by a polygon that is drawn in a view and runs through them.

    points is k x 2, in the two world coordinates that the view leaves free; the first piece lies within.""")
cylinder = _cut("cylinder", "cylinder", """Cuts parts by a cylinder that is drawn in a view and runs through them.

    The first piece lies within.""")
cuboid = _cut("cuboid", "cuboid", """Cuts parts by a cuboid that is drawn in a view and runs through them.

    The first piece lies within.""")
repair = _cut("repair", "repair", """Mends parts: closes holes, resolves crossings, turns what faces the wrong way.

    What would change their shape is left and told in remarks. Each part gives one piece.""")


def boolean(a, b, operation, *, progress=None, **options):
    """Joins, intersects, subtracts or splits two solids.

    a, b      : each a Part, the name of a file, or an object with vertices and faces
    operation : "union", "intersect", "subtract", or "split": what of a is in b, and what is not
    Returns Pieces; none if nothing is left. Raises UsageError, FileError, CutError, OpenPieceError.
    """
    operations = ("union", "intersect", "subtract", "split")
    if operation not in operations:
        raise UsageError(f"There is no operation {operation!r}; there are {', '.join(operations)}.")
    return _run("boolean", [a, b], options, function="boolean", extra=[f"--{operation}"], progress=progress)


def info(parts, *, progress=None, **options):
    """Tells size, volume and errors of parts.

    parts : a Part, the name of a file, an object with vertices and faces, or a list of these
    Returns a dict with "triangles", "vertices", "shells", "volume" (cubic millimetres, None if it is not closed),
    "area" (square millimetres), "closed", "box" (six numbers, minimum first) and "errors" (counts by kind); a list of
    them for a list of parts, and for a file that holds several. Raises FileError.
    """
    found = _run("info", parts, options, function="info", progress=progress).report["parts"]
    return found[0] if _is_one(parts) and len(found) == 1 else found


_describe(boolean, "boolean", "a", "b", "operation")
_describe(info, "info", "parts")


def read(file, *, unit=None, scale=None, progress=None):
    """Reads all parts of an STL, OBJ, PLY, OFF or 3MF file.

    unit  : what its numbers are if it does not say so itself: "mm", "cm", "m" or "inch"
    scale : multiply the parts by this
    Returns a list of Part. Raises FileError.
    """
    return list(_run("convert", [file], {"unit": unit, "scale": scale}, function="read", progress=progress))
