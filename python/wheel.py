#!/usr/bin/env python3
"""Packs the installed package as a wheel: wheel.py FOLDER VERSION OUT

FOLDER holds stolvane/. Prints the wheel's path. The same files give the same bytes."""
import base64
import hashlib
import pathlib
import sys
import sysconfig
import zipfile

# The module keeps to the stable interface of this Python and all later ones.
PYTHON = "cp310-abi3"
METADATA = """Metadata-Version: 2.1
Name: stolvane
Version: {version}
Summary: Finished stock and sales reports from the books of a company
Requires-Python: >=3.10
Classifier: Operating System :: POSIX :: Linux
Classifier: Typing :: Typed
"""
WHEEL = """Wheel-Version: 1.0
Generator: stolvane
Root-Is-Purelib: false
Tag: {tag}
"""
NO_TIME = (1980, 1, 1, 0, 0, 0)
FILE, PROGRAM = 0o100644, 0o100755


def record_line(name, content):
    digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
    return f"{name},sha256={digest},{len(content)}\n"


def main():
    folder, version, out = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])
    tag = f"{PYTHON}-{sysconfig.get_platform().replace('-', '_').replace('.', '_')}"
    about = f"stolvane-{version}.dist-info"
    files = {str(path.relative_to(folder)): path.read_bytes()
             for path in sorted(folder.rglob("*")) if path.is_file()}
    files[f"{about}/METADATA"] = METADATA.format(version=version).encode()
    files[f"{about}/WHEEL"] = WHEEL.format(tag=tag).encode()
    record = "".join(record_line(*file) for file in files.items()) + f"{about}/RECORD,,\n"
    files[f"{about}/RECORD"] = record.encode()

    out.mkdir(parents=True, exist_ok=True)
    wheel = out / f"stolvane-{version}-{tag}.whl"
    with zipfile.ZipFile(wheel, "w", zipfile.ZIP_DEFLATED) as packed:
        for name, content in files.items():
            entry = zipfile.ZipInfo(name, NO_TIME)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = (PROGRAM if ".so" in name else FILE) << 16
            packed.writestr(entry, content)
    print(wheel)


main()
