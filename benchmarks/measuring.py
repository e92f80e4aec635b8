"""Runs the benchmark programs and calculates the figures from their output."""
import json
import os
import shutil
import subprocess
import tempfile
import time

import importing

SECURITIES = [1_000, 10_000, 100_000, 1_000_000]
ACCOUNTS = [1, 100, 10_000]
PLANS = [1, 1_000, 10_000, 100_000]
INSTRUCTIONS = [100, 1_000, 10_000]
ISSUED_PLANS = 100_000
SERVER_PLANS = [1_000, 1_000_000]
STARTED_PLANS = [1_000, 1_000_000]
TABLE_PLANS = 1_000_000
TABLE_ACCOUNTS = 100
CONFIRM_RUNS = 5
# Version of the generated data; increment it when the output of make_data changes.
DATA_VERSION = 7


ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
STRATEGY_FILE = os.path.join(ROOT, "client", "strategies", "files", "SNIPER.xml")


class Programs:
    """The built programs and their databases."""

    def __init__(self, build):
        self.bin = os.path.join(build, "bin")
        self.plugins = os.path.join(build, "benchmarks", "plugins")
        self.data = os.path.join(build, "data")
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8", TZ="CST-8", QT_HASH_SEED="0")
        os.makedirs(self.data, exist_ok=True)

    def database(self, securities=1_000, accounts=1, plans=0, instructions=0):
        """Returns a database of the given size; generates it on first use."""
        name = f"v{DATA_VERSION}-{securities}-{accounts}-{plans}-{instructions}.sqlite"
        file = os.path.join(self.data, name)
        if not os.path.exists(file):
            numbers = [str(n) for n in (securities, accounts, plans, instructions)]
            self._call([os.path.join(self.bin, "make_data"), file, *numbers])
        return file

    def copy_of(self, file, end="-copy"):
        """Returns a new copy for a program that writes to the database."""
        copy = file + end
        for end in ("", "-wal", "-shm"):
            if os.path.exists(copy + end):
                os.remove(copy + end)
        return shutil.copyfile(file, copy)

    def run(self, program, database, user="trader01", seconds=0.2, only="."):
        """Runs a program. Returns a dictionary with the output of each benchmark by name."""
        return self._run([os.path.join(self.bin, program), f"--database={database}", f"--user={user}",
                          f"--benchmark_min_time={seconds}", f"--benchmark_filter={only}",
                          "--benchmark_enable_random_interleaving=true"])

    def run_on_server(self):
        """Runs the program that measures on the server of scripts/team-server. Returns the same."""
        return self._run([os.path.join(ROOT, "scripts", "team-server"), "run", os.path.join(self.bin, "bench_server"),
                          "--benchmark_min_time=0.2"])

    def _run(self, command):
        printed = json.loads(self._call([*command, "--benchmark_format=json"]))["benchmarks"]
        failed = [one for one in printed if one.get("error_occurred")]
        if failed:
            raise SystemExit(f"{failed[0]['name']}: {failed[0]['error_message']}")
        names = [one["name"].split("/manual_time")[0].split("/iterations")[0] for one in printed]
        return dict(zip(names, printed))

    def start(self, database, *options):
        """Starts the client. Returns the milliseconds until its window is painted and handles events."""
        environment = dict(self.environment, QT_QPA_GENERIC_PLUGINS="firstpaint", QT_PLUGIN_PATH=self.plugins)
        begin = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
        done = subprocess.run([os.path.join(self.bin, "plandesk"), "--database", database, *options], env=environment,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True, text=True)
        return (int(done.stdout) - begin) / 1e6

    def start_and_end(self, database):
        """Starts the client, which ends when its window is painted. Returns the milliseconds until it has ended."""
        environment = dict(self.environment, QT_QPA_GENERIC_PLUGINS="firstpaint", QT_PLUGIN_PATH=self.plugins)
        begin = time.monotonic()
        subprocess.run([os.path.join(self.bin, "plandesk"), "--database", database, "--user", "bench"], env=environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        return (time.monotonic() - begin) * 1e3

    def insert_issued(self, source, database):
        """Inserts what was issued in one database into another one with sqlite3. Returns the milliseconds."""
        rows = self._call(["sqlite3", source, ".mode insert instructions", "SELECT * FROM instructions",
                           ".mode insert history", "SELECT * FROM history WHERE event = 'issued'"])
        statements = "PRAGMA synchronous = FULL;\nPRAGMA foreign_keys = ON;\nBEGIN;\n" + rows + "COMMIT;\n"
        begin = time.monotonic()
        subprocess.run(["sqlite3", "-bail", database], input=statements, stdout=subprocess.DEVNULL, check=True, text=True)
        return (time.monotonic() - begin) * 1e3

    def _call(self, command):
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True, check=False)
        if done.returncode:
            raise SystemExit(f"{' '.join(command)} exited with status {done.returncode}:\n{done.stderr[-2000:]}")
        return done.stdout


class Least:
    """The least value recorded for each key in all rounds."""

    def __init__(self):
        self.values = {}

    def note(self, key, value):
        self.values[key] = min(value, self.values.get(key, value))

    def __getitem__(self, key):
        return self.values[key]


def median(values):
    return sorted(values)[len(values) // 2]


def _search(programs, least, securities, with_completer):
    database = programs.database(securities=securities)
    only = "." if with_completer else "searchBox"
    for name, printed in programs.run("bench_search", database, only=only).items():
        least.note(("search", name, "slowest", securities), printed["slowest_ms"])
        least.note(("search", name, "mean", securities), printed["mean_ms"])


def _form(programs, least, key, database, user):
    for name, printed in programs.run("bench_form", database, user=user).items():
        least.note(("form", name, *key), printed["least_ms"])


def _choices(programs, least, securities):
    for name, printed in programs.run("bench_choices", programs.database(securities=securities), seconds=0.05).items():
        least.note(("choice", name, securities), printed["least_ms"])


def _advisor(programs, least, ratios):
    printed = programs.run("bench_advisor", programs.database(securities=SECURITIES[-1]))["advisor"]
    least.note(("advisor",), printed["slowest_ms"])
    ratios.append(printed["slowest_ms"] / printed["bare_ms"])


def _account_choice(programs, least, accounts):
    database = programs.database(accounts=accounts)
    printed = programs.run("bench_accounts", database, user="bench", seconds=0.05)
    least.note(("choice", "account", accounts), printed["chooseAccount"]["least_ms"])


def _check(programs, least, instructions):
    database = programs.database(plans=1, instructions=instructions)
    printed = programs.run("bench_check", database, user="bench")["checkParam"]
    least.note(("check", instructions), printed["least_ms"])


def _table(programs, least, plans):
    database = programs.database(plans=plans)
    printed = programs.run("bench_table", database, user="bench", only="openTable")["openTable"]
    least.note(("table", plans), printed["least_ms"])
    least.note(("memory", plans), printed["window_mib"])


def _use_of_table(programs, least):
    database = programs.database(securities=10_000, accounts=TABLE_ACCOUNTS, plans=TABLE_PLANS)
    for name in ("sort", "filter", "search", "jump", "letterKey"):
        printed = programs.run("bench_table", database, user="bench", only=f"^{name}/")
        least.note(("use of table", name), printed[name]["slowest_ms"])


def _plans(programs, least, reads, plans):
    for name, printed in programs.run("bench_plans", programs.database(plans=plans), user="bench").items():
        least.note(("open", name.split("/")[1], plans), printed["least_ms"])
        reads.append(printed["reads"] / printed["calls"])


def _confirm(programs, ratios, syncs):
    printed = programs.run("bench_submit", programs.copy_of(programs.database()))["confirm"]
    ratios.append(printed["median_ms"] / printed["bare_median_ms"])
    syncs.append(printed["most_log_syncs"])


def _start(programs, least, securities):
    copy = programs.copy_of(programs.database(securities=securities))
    programs.start(copy)
    for _ in range(3):
        least.note(("start", securities), programs.start(copy))


def _strategies(programs, least):
    printed = programs.run("bench_strategies", programs.database())
    least.note(("strategy", "key"), printed["keyInPanel"]["slowest_ms"])
    least.note(("strategy", "files"), printed["readFolder"]["least_ms"])
    copy = programs.copy_of(programs.database())
    with tempfile.TemporaryDirectory() as folder:
        with open(STRATEGY_FILE, encoding="utf-8") as file:
            text = file.read()
        for number in range(1_000):
            with open(os.path.join(folder, f"{number}.xml"), "w", encoding="utf-8") as file:
                file.write(text.replace('name="SNIPER"', f'name="S{number}"'))
        programs.start(copy)
        for _ in range(3):
            least.note(("start with strategies", False), programs.start(copy))
            least.note(("start with strategies", True), programs.start(copy, "--strategies", folder))


def _issue(programs, least, ratios, again):
    source = programs.database(plans=ISSUED_PLANS)
    copy = programs.copy_of(source)
    printed = programs.run("bench_issue", copy, user="bench", only="issueDay")["issueDay"]
    bare = programs.insert_issued(copy, programs.copy_of(source, "-bare"))
    ratios.append(printed["first_ms"] / bare)
    again.append(printed["again_ms"] / bare)
    printed = programs.run("bench_issue", programs.copy_of(source), user="bench", only="issueInSheet")
    least.note(("issue in sheet",), printed["issueInSheet"]["real_time"])


def _import(programs, ratios, memory):
    def measured(days):
        return importing.measure(ROOT, os.path.join(programs.bin, "plandesk"), programs.data, programs.environment, days)
    seconds, bare, many = measured(importing.DAYS)
    _, _, few = measured(importing.FEW_DAYS)
    ratios.append(seconds / bare)
    memory.append(many / few)


def _sheet(programs, ratios):
    seconds, bare = importing.measure_sheet(ROOT, os.path.join(programs.bin, "plandesk"), programs.environment,
                                            programs.copy_of, programs.database(securities=10_000, plans=1))
    ratios.append(seconds / bare)


def _start_and_end(programs, least, plans):
    copy = programs.copy_of(programs.database(plans=plans))
    programs.start_and_end(copy)
    for _ in range(3):
        least.note(("start and end", plans), programs.start_and_end(copy))


def _server(programs, server):
    printed = programs.run_on_server()
    for name, figure in (("confirmOnServer", "server_confirm_ratio"), ("changeOfAnother", "server_notice_ratio")):
        server[figure].append(printed[name]["median_ms"] / printed[name]["bare_median_ms"])
    few, many = (printed[f"firstPage/{plans}"]["least_ms"] for plans in SERVER_PLANS)
    server["server_page_ratio"].append(many / few)
    server["server_clients_ratio"].append(printed["manyClients"]["many"] / printed["manyClients"]["one"])


def measure(programs, rounds, log):
    """Measures everything in the given number of rounds. Returns the figures by name and the growth for the diagrams."""
    least, ratios, syncs, reads, editors = Least(), [], [], [], []
    issue, again, advisor, imports, memory, sheets = [], [], [], [], [], []
    server = {name: [] for name in
              ("server_confirm_ratio", "server_notice_ratio", "server_page_ratio", "server_clients_ratio")}
    for number in range(rounds):
        log(f"round {number + 1} of {rounds}")
        for securities in SECURITIES:
            log(f"  {securities:,} securities")
            _search(programs, least, securities, with_completer=securities == 100_000)
            _choices(programs, least, securities)
            _form(programs, least, ("securities", securities), programs.database(securities=securities), "trader01")
            _start(programs, least, securities)
        log("  strategies")
        _strategies(programs, least)
        log("  the advisor")
        _advisor(programs, least, advisor)
        for accounts in ACCOUNTS:
            log(f"  {accounts:,} accounts")
            _form(programs, least, ("accounts", accounts), programs.database(accounts=accounts), "bench")
            _account_choice(programs, least, accounts)
        for plans in PLANS:
            log(f"  {plans:,} plans")
            _table(programs, least, plans)
            _plans(programs, least, reads, plans)
        log(f"  {TABLE_PLANS:,} plans in the table")
        _table(programs, least, TABLE_PLANS)
        _use_of_table(programs, least)
        log("  one plan")
        for instructions in INSTRUCTIONS:
            _check(programs, least, instructions)
        log(f"  {ISSUED_PLANS:,} plans issued")
        _issue(programs, least, issue, again)
        log(f"  {importing.SECURITIES:,} securities with {importing.DAYS} closes imported")
        _import(programs, imports, memory)
        log(f"  a sheet of {importing.SHEET_ROWS:,} plans")
        _sheet(programs, sheets)
        for plans in STARTED_PLANS:
            log(f"  start with {plans:,} plans")
            _start_and_end(programs, least, plans)
        log("  the server")
        _server(programs, server)
    log("  OK")
    for _ in range(CONFIRM_RUNS):
        _confirm(programs, ratios, syncs)
    log("  1,000 editors")
    printed = programs.run("bench_editors", programs.database())["openAndClose"]
    editors.append(printed["after_1000_mib"] / printed["after_50_mib"])
    figures = _figures(least, ratios, syncs, reads, editors)
    figures["issue_ratio"] = median(issue)
    figures["import_ratio"] = median(imports)
    figures["import_memory"] = median(memory)
    figures["sheet_ratio"] = median(sheets)
    figures["advisor_ms"] = least[("advisor",)]
    figures["advisor_ratio"] = median(advisor)
    figures["issue_again_ratio"] = median(again)
    figures["issue_pause_ms"] = least[("issue in sheet",)]
    figures.update({name: median(ratios) for name, ratios in server.items()})
    return figures, _growth(least)


def _choice_names(least):
    return sorted({key[1] for key in least.values if key[0] == "choice" and len(key) == 3 and "/" in key[1]})


def _figures(least, ratios, syncs, reads, editors):
    choices = _choice_names(least)
    few, many = INSTRUCTIONS[-2:]
    return {
        "search_ratio": least["search", "completer", "mean", 100_000] / least["search", "searchBox", "mean", 100_000],
        "search_slowest_ms_100000": least["search", "searchBox", "slowest", 100_000],
        "search_slowest_ms_1000000": least["search", "searchBox", "slowest", 1_000_000],
        "form_ratio": least["form", "editor", "securities", 100_000] / least["form", "bareForm", "securities", 100_000],
        "choice_slowest_ms": max(least["choice", name, size] for name in choices for size in SECURITIES),
        "choice_growth": max(
            least["choice", name, SECURITIES[-1]] / least["choice", name, SECURITIES[0]] for name in choices),
        "check_ms": least["check", many],
        "check_linearity": (least["check", many] / many) / (least["check", few] / few),
        "copy_ms": least["open", "copyPlan", PLANS[-1]],
        "edit_ms": least["open", "editPlan", PLANS[-1]],
        "plan_reads": max(reads),
        "confirm_ratio": median(ratios),
        "confirm_log_syncs": max(syncs),
        "table_ms": least["table", 100_000],
        "table_memory": least["memory", 100_000] / least["memory", 1_000],
        "table_memory_million": least["memory", TABLE_PLANS] / least["memory", 1_000],
        "table_sort_ms": least["use of table", "sort"],
        "table_filter_ms": least["use of table", "filter"],
        "table_search_ms": least["use of table", "search"],
        "table_jump_ms": least["use of table", "jump"],
        "table_letter_ms": least["use of table", "letterKey"],
        "strategy_key_ms": least["strategy", "key"],
        "strategy_files_ms": least["strategy", "files"],
        "strategy_start_ratio": least["start with strategies", True] / least["start with strategies", False],
        "editors_memory": min(editors),
        "start_ms": least["start", 100_000],
        "plans_start_ratio": least["start and end", STARTED_PLANS[1]] / least["start and end", STARTED_PLANS[0]],
    }


def _growth(least):
    choices = _choice_names(least)
    return {
        "securities": {
            "slowest keystroke of the search": {n: least["search", "searchBox", "slowest", n] for n in SECURITIES},
            "slowest single choice": {n: max(least["choice", name, n] for name in choices) for n in SECURITIES},
            "editor constructed and shown": {n: least["form", "editor", "securities", n] for n in SECURITIES},
            "start of the client": {n: least["start", n] for n in SECURITIES},
        },
        "accounts": {
            "editor constructed and shown": {n: least["form", "editor", "accounts", n] for n in ACCOUNTS},
            "choice of an account": {n: least["choice", "account", n] for n in ACCOUNTS},
        },
        "plans": {
            "plan table opened and painted": {n: least["table", n] for n in PLANS},
            "plan opened for editing": {n: least["open", "editPlan", n] for n in PLANS},
            "plan copied": {n: least["open", "copyPlan", n] for n in PLANS},
        },
        "instructions": {"form checked": {n: least["check", n] for n in INSTRUCTIONS}},
    }
