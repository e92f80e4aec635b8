"""Measures the import of closing prices against sqlite3's own import of the same files."""
import csv
import datetime
import os
import subprocess
import time

SECURITIES = 100_000
DAYS = 260
# For the memory: as many securities, but a tenth of the lines.
FEW_DAYS = 26
LAST_DAY = datetime.date(2024, 4, 30)


def _trade_days(root, count):
    with open(os.path.join(root, "client", "calendar", "market_closures.csv"), encoding="utf-8") as file:
        closed = {row["date"] for row in csv.DictReader(file) if row["market"] == "mainland"}
    days, day = [], LAST_DAY
    while len(days) < count:
        if day.weekday() < 5 and day.isoformat() not in closed:
            days.append(day.isoformat())
        day -= datetime.timedelta(days=1)
    return days[::-1]


def _write(file, lines):
    if not os.path.exists(file):
        with open(file + ".part", "w", encoding="utf-8") as part:
            part.writelines(lines)
        os.rename(file + ".part", file)
    return file


def files(root, folder, days):
    """The files of securities and of closes; writes them on first use."""
    symbols = [f"{100000 + number}.SH" for number in range(SECURITIES)]
    securities = ["symbol,name,type,sub-type,decimals,factor,step,limit\n"]
    securities += [f"{symbol},证券{symbol},股票,主板,2,1,100,10%\n" for symbol in symbols]
    numbers = list(enumerate(_trade_days(root, days)))
    closes = (f"{symbol},{day},{10 + (place * 7 + number) % 500 / 100:.2f}\n"
              for place, symbol in enumerate(symbols) for number, day in numbers)

    def all_closes():
        yield "symbol,date,close\n"
        yield from closes
    return (_write(os.path.join(folder, "securities.csv"), securities),
            _write(os.path.join(folder, f"closes-{days}.csv"), all_closes()))


def _timed(command, environment=None, text=None):
    """Returns seconds and the peak of the memory in MiB."""
    begin = time.monotonic()
    with subprocess.Popen(command, env=environment, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL) as process:
        if text:
            process.stdin.write(text.encode())
        process.stdin.close()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode:
        raise SystemExit(f"{' '.join(command)} exited with status {process.returncode}")
    return time.monotonic() - begin, usage.ru_maxrss / 1024


def _fresh(file):
    for end in ("", "-wal", "-shm"):
        if os.path.exists(file + end):
            os.remove(file + end)
    return file


def measure(root, plandesk, folder, environment, days):
    """Seconds of the import, those of sqlite3, and the peak of the memory in MiB."""
    securities, closes = files(root, folder, days)
    database = _fresh(os.path.join(folder, "import.sqlite"))
    seconds, memory = 0, 0
    for kind, file in (("securities", securities), ("closes", closes)):
        took, peak = _timed([plandesk, "import", kind, file, "--database", database, "--empty"], environment)
        seconds, memory = seconds + took, max(memory, peak)
    bare = _fresh(os.path.join(folder, "bare.sqlite"))
    statements = ("CREATE TABLE securities (symbol, name, type, sub_type, decimals, factor, step, price_limit);\n"
                  "CREATE TABLE closes (symbol, day, close);\n.mode csv\n"
                  f".import --skip 1 {securities} securities\n.import --skip 1 {closes} closes\n")
    bare_seconds, _ = _timed(["sqlite3", "-bail", bare], text=statements)
    return seconds, bare_seconds, memory
