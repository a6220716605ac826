"""Loads a CSV with CHIRP's own driver, prints what it understood, and saves it again: FILE COPY"""
import builtins
import sys

sys.path.insert(0, "/usr/lib/python3/dist-packages")
_open = builtins.open


def open_without_u(file, mode="r", *more, **named):
    """CHIRP of Debian 12 opens files in a mode that its Python does not have any more."""
    return _open(file, mode.replace("U", ""), *more, **named)


builtins.open = open_without_u
try:
    from chirp.drivers import generic_csv
except ImportError:
    sys.exit(77)

radio = generic_csv.CSVRadio(sys.argv[1])
for number in range(1, 100):
    memory = radio.get_memory(number)
    if memory.empty:
        continue
    tone = memory.ctone if memory.tmode == "TSQL" else memory.rtone
    print(number, memory.freq, memory.mode, memory.duplex or "none", memory.tmode or "none", tone, memory.name)
radio.save(sys.argv[2])
