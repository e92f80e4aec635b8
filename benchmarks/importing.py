"""Measures imports of closing prices and of a sheet of plans against sqlite3."""
import csv
import datetime
import os
import sqlite3
import subprocess
import time

SECURITIES = 100_000
DAYS = 260
# For the memory: as many securities, but a tenth of the lines.
FEW_DAYS = 26
LAST_DAY = datetime.date(2024, 4, 30)
SHEET_ROWS = 10_000
TEMPLATE = "AP00000001"


def _trade_days(root, day, step, count):
    """That many trade days from a day on, forwards or backwards by the step."""
    with open(os.path.join(root, "client", "calendar", "market_closures.csv"), encoding="utf-8") as file:
        closed = {row["date"] for row in csv.DictReader(file) if row["market"] == "mainland"}
    days = []
    while len(days) < count:
        if day.weekday() < 5 and day.isoformat() not in closed:
            days.append(day.isoformat())
        day += datetime.timedelta(days=step)
    return days


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
    numbers = list(enumerate(_trade_days(root, LAST_DAY, -1, days)[::-1]))
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


def _write_sheet(root, file, database, rows):
    """A sheet for shares of the database, each in several rows if there are fewer of them."""
    with sqlite3.connect(database) as connection:
        symbols = [symbol for symbol, in connection.execute(
            "SELECT symbol FROM securities WHERE type = (SELECT type FROM securities LIMIT 1) AND exchange IN"
            " (SELECT exchange FROM securities ORDER BY position LIMIT 1) ORDER BY position")]
    days = _trade_days(root, datetime.date.today() + datetime.timedelta(days=1), 1, 5)
    with open(file, "w", encoding="utf-8") as sheet:
        sheet.write("代码,数量,开始,结束\n")
        for row in range(rows):
            quantity = 100 * (1 + row // len(symbols))
            sheet.write(f"{symbols[row % len(symbols)]},{quantity},{days[0]},{days[-1]}\n")


def measure_sheet(root, plandesk, environment, copy_of, database):
    """Seconds in which a sheet is checked and stored, those of sqlite3 for the same rows of plans and history."""
    seconds = {}
    for rows in (1, SHEET_ROWS):
        copy = copy_of(database)
        sheet = copy + ".csv"
        _write_sheet(root, sheet, copy, rows)
        seconds[rows], _ = _timed([plandesk, "import", "plans", sheet, "--template", TEMPLATE, "--database", copy,
                                   "--user", "bench"], environment)
    dump = subprocess.run(["sqlite3", copy, ".mode insert plans", "SELECT * FROM plans WHERE number > 1",
                           ".mode insert history", "SELECT * FROM history WHERE plan > 1"],
                          capture_output=True, check=True, text=True).stdout
    inserts = "PRAGMA synchronous = FULL;\nPRAGMA foreign_keys = ON;\nBEGIN;\n" + dump + "COMMIT;\n"
    bare, _ = _timed(["sqlite3", "-bail", copy_of(database)], text=inserts)
    # The start of the program is not part of the sheet.
    return seconds[SHEET_ROWS] - seconds[1], bare
