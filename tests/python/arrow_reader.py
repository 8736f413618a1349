"""Reads an Arrow stream from its capsule, by the published layout of its structures alone."""
import ctypes
import datetime
import struct
from decimal import Decimal


class Schema(ctypes.Structure):
    pass


class Array(ctypes.Structure):
    pass


class Stream(ctypes.Structure):
    pass


Schema._fields_ = [
    ("format", ctypes.c_char_p), ("name", ctypes.c_char_p), ("metadata", ctypes.c_char_p),
    ("flags", ctypes.c_int64), ("n_children", ctypes.c_int64),
    ("children", ctypes.POINTER(ctypes.POINTER(Schema))), ("dictionary", ctypes.POINTER(Schema)),
    ("release", ctypes.CFUNCTYPE(None, ctypes.POINTER(Schema))), ("private_data", ctypes.c_void_p)]
Array._fields_ = [
    ("length", ctypes.c_int64), ("null_count", ctypes.c_int64), ("offset", ctypes.c_int64),
    ("n_buffers", ctypes.c_int64), ("n_children", ctypes.c_int64),
    ("buffers", ctypes.POINTER(ctypes.c_void_p)), ("children", ctypes.POINTER(ctypes.POINTER(Array))),
    ("dictionary", ctypes.POINTER(Array)),
    ("release", ctypes.CFUNCTYPE(None, ctypes.POINTER(Array))), ("private_data", ctypes.c_void_p)]
Stream._fields_ = [
    ("get_schema", ctypes.CFUNCTYPE(ctypes.c_int, ctypes.POINTER(Stream), ctypes.POINTER(Schema))),
    ("get_next", ctypes.CFUNCTYPE(ctypes.c_int, ctypes.POINTER(Stream), ctypes.POINTER(Array))),
    ("get_last_error", ctypes.CFUNCTYPE(ctypes.c_char_p, ctypes.POINTER(Stream))),
    ("release", ctypes.CFUNCTYPE(None, ctypes.POINTER(Stream))), ("private_data", ctypes.c_void_p)]

_FIXED = {"i": ("i", 4), "l": ("q", 8), "f": ("f", 4), "g": ("d", 8)}
_DAY_0 = datetime.date(1970, 1, 1)


def stream_of(capsule):
    """The stream, taken out of its capsule as a consumer does: the capsule's own is released."""
    get = ctypes.pythonapi.PyCapsule_GetPointer
    get.restype, get.argtypes = ctypes.c_void_p, [ctypes.py_object, ctypes.c_char_p]
    given = Stream.from_address(get(capsule, b"arrow_array_stream"))
    taken = Stream()
    ctypes.memmove(ctypes.byref(taken), ctypes.byref(given), ctypes.sizeof(Stream))
    given.release = type(given.release)()
    return taken


def _cells(form, array):
    length, buffers = array.length, array.buffers
    assert array.offset == 0 and array.n_children == 0

    def bytes_of(buffer, size):
        return ctypes.string_at(buffers[buffer], size) if size else b""

    def bit(buffer, at):
        return bytes_of(buffer, length // 8 + 1)[at // 8] >> at % 8 & 1

    nothing = {at for at in range(length) if buffers[0] and not bit(0, at)}
    assert array.null_count in (-1, len(nothing))
    if form in _FIXED:
        sign, width = _FIXED[form]
        cells = [one for one, in struct.iter_unpack("<" + sign, bytes_of(1, width * length))]
    elif form == "tdD":
        cells = [_DAY_0 + datetime.timedelta(one)
                 for one, in struct.iter_unpack("<i", bytes_of(1, 4 * length))]
    elif form == "d:19,4":
        whole = bytes_of(1, 16 * length)
        cells = [Decimal(int.from_bytes(whole[at:at + 16], "little", signed=True)).scaleb(-4)
                 for at in range(0, 16 * length, 16)]
    elif form == "b":
        cells = [bool(bit(1, at)) for at in range(length)]
    else:
        assert form == "u", form
        ends = struct.unpack(f"<{length + 1}i", bytes_of(1, 4 * (length + 1)))
        texts = bytes_of(2, ends[-1])
        cells = [texts[begin:end].decode() for begin, end in zip(ends, ends[1:])]
    return [None if at in nothing else cell for at, cell in enumerate(cells)]


def read(stream):
    """The columns as {name: (format, cells)}; releases the stream."""
    schema = Schema()
    assert stream.get_schema(stream, schema) == 0, stream.get_last_error(stream)
    assert schema.format == b"+s"
    columns = [schema.children[i].contents for i in range(schema.n_children)]
    table = {one.name.decode(): (one.format.decode(), []) for one in columns}
    while True:
        batch = Array()
        assert stream.get_next(stream, batch) == 0, stream.get_last_error(stream)
        if not batch.release:
            break
        for place, (form, cells) in enumerate(table.values()):
            cells += _cells(form, batch.children[place].contents)
        batch.release(batch)
    schema.release(schema)
    stream.release(stream)
    assert not stream.release
    return table
