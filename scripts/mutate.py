"""Mutation testing of autoparamsetting/, started by scripts/mutate.

The tree is copied to a temporary folder and built there once, with the tests. For each mutant, one source is recompiled,
and each test is linked with the new object before it runs. For a mutant in a header, the sources of the editor and the
tests that include the header are rebuilt. A test notices a mutant if it fails, crashes or hangs; the first one is
reported. A mutant that does not compile is replaced by the next one and not counted.
The last line is: mutants N noticed N
"""

import argparse
import filecmp
import hashlib
import json
import os
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter
from concurrent.futures import FIRST_COMPLETED, ThreadPoolExecutor, wait
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
EDITOR = "autoparamsetting"
LIBRARY = "libtest_editor.a"
# Limits in seconds, for processor time and for waiting: on a busy machine, even a short test can take long.
CPU_LIMIT = 60
SHORTEST_TIMEOUT = 240
TIMEOUT_FACTOR = 10
MEMORY_LIMIT = 8 << 30

# The tests to run first for a file. All others follow in the order of TESTS, slow tests last.
FIRST_TESTS = {
    "Accessibility.cpp": ["tst_field_names"],
    "Accessibility.h": ["tst_field_names"],
    "AccountBox.h": ["tst_form"],
    "AccountFields.cpp": ["tst_account_fields"],
    "AgreementDialog.cpp": ["tst_submission", "tst_type_fields", "tst_account_fields"],
    "AlgorithmParameters.cpp": ["tst_algorithm_parameters"],
    "AlgorithmParameters.h": ["tst_algorithm_parameters"],
    "AutoParamSetting.cpp": ["tst_widget_class", "tst_form"],
    "AutoParamSetting.h": ["tst_widget_class"],
    "ComboItems.h": ["tst_type_fields", "tst_account_fields"],
    "EffectivePeriod.cpp": ["tst_effective_period"],
    "ExchangeAccounts.h": ["tst_account_fields", "tst_type_fields"],
    "FieldGroups.cpp": ["tst_type_fields", "tst_plan_loading", "tst_submission"],
    "FieldGroups.h": ["tst_type_fields", "tst_plan_loading", "tst_submission"],
    "FormulaItems.cpp": ["tst_formula_items", "tst_price_fields"],
    "PlanLoading.cpp": ["tst_plan_loading", "tst_stored_plans"],
    "PlanQuantities.cpp": ["tst_validation_rules"],
    "PlanRecord.cpp": ["tst_plan_record"],
    "PlanVocabulary.h": ["tst_vocabulary"],
    "PriceFields.cpp": ["tst_price_fields"],
    "QuantityRounding.cpp": ["tst_quantity_rounding"],
    "QuantityRounding.h": ["tst_quantity_rounding"],
    "SecurityFields.cpp": ["tst_security_fields"],
    "SenderGuard.cpp": ["tst_submission", "tst_security_fields"],
    "SenderGuard.h": ["tst_submission", "tst_security_fields"],
    "SpecialCharacters.cpp": ["tst_special_characters"],
    "Submission.cpp": ["tst_submission"],
    "TradingDays.cpp": ["tst_trading_days", "tst_effective_period"],
    "TypeFields.cpp": ["tst_type_fields"],
    "Validation.cpp": ["tst_validation_rules", "tst_validation_order"],
}
# These tests link the pure functions statically.
PURE_TESTS = ["tst_formula_items", "tst_quantity_rounding", "tst_special_characters", "tst_trading_days"]
TESTS = [
    "tst_vocabulary",
    "tst_widget_class",
    "tst_effective_period",
    "tst_account_fields",
    "tst_security_fields",
    "tst_submission",
    "tst_algorithm_parameters",
    "tst_plan_record",
    "tst_price_fields",
    "tst_field_names",
    "tst_form",
    "tst_type_fields",
    "tst_plan_loading",
    "tst_validation_order",
    "tst_validation_rules",
    "tst_choices",
    "tst_exploration",
    "tst_stored_plans",
]
ARGUMENTS = {"tst_exploration": ["300", "1"]}


# --- Candidates for mutation


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # index of the first line replaced
    length: int
    kind: str
    before: str
    after: str

    def change(self):
        return f"{shorten(self.before)} → {shorten(self.after)}"

    def where(self):
        return f"{EDITOR}/{self.file}:{self.line + 1}"


def shorten(text):
    return " ⏎ ".join(line.strip() for line in text.splitlines()) or "(nothing)"


def code_only(line):
    """Returns the line with texts and comments replaced by spaces; positions do not change."""
    code, quoted, i = [], False, 0
    while i < len(line):
        if quoted and line[i] == "\\":
            code.append("  ")
            i += 2
            continue
        if not quoted and line.startswith("//", i):
            break
        if line[i] == '"':
            quoted = not quoted
            code.append('"')
        else:
            code.append(" " if quoted else line[i])
        i += 1
    return "".join(code).ljust(len(line))


def mutable_lines(lines):
    """Returns the indices of lines with code, without comments, directives, and debug or info output."""
    found, logging = [], False
    for index, line in enumerate(lines):
        code = code_only(line).strip()
        logging = logging or bool(re.search(r"\bq(Debug|Info)\(\)", code))
        skipped = (
            logging
            or not code
            or code.startswith(("#", "using ", "namespace ", "class ", "struct ", "enum ", "Q_DISABLE", "template"))
            or code in ("{", "}", "};", "public:", "private:", "protected:")
        )
        if logging and code.endswith(";"):
            logging = False
        if not skipped:
            found.append(index)
    return found


def closing_bracket(text, opening):
    depth = 0
    for i in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[i], 0)
        if depth == 0:
            return i
    return -1


def negated_conditions(lines, index):
    line, code = lines[index], code_only(lines[index])
    for match in re.finditer(r"\bif \(", code):
        block = lines[index : index + 4]
        opening = match.end() - 1
        closing = closing_bracket("\n".join(code_only(each) for each in block), opening)
        if closing > 0:
            text = "\n".join(block)
            length = text[:closing].count("\n") + 1
            condition = code[opening + 1 :]
            if length == 1 and re.match(r"!|[^&|]* [!=]= ", condition) and not re.search(r"&&|\|\|", condition):
                continue  # same as the negation of the operator below
            after = text[:opening] + "(!" + text[opening : closing + 1] + ")" + text[closing + 1 :]
            yield length, "\n".join(after.split("\n")[:length])
    for old, new in ((" == ", " != "), (" != ", " == "), ("&& ", "|| "), ("|| ", "&& ")):
        for match in re.finditer(re.escape(old), code):
            yield 1, line[: match.start()] + new + line[match.end() :]
    for match in re.finditer(r"(?<![\w!])!(?=[\w(])", code):
        yield 1, line[: match.start()] + line[match.end() :]
    for match in re.finditer(r"\b(true|false)\b", code):
        other = "false" if match.group() == "true" else "true"
        yield 1, line[: match.start()] + other + line[match.end() :]


def off_by_one(lines, index):
    line, code = lines[index], code_only(lines[index])
    for match in re.finditer(r"(?<![\w.\-])\d+(?![\w.])", code):
        yield 1, line[: match.start()] + str(int(match.group()) + 1) + line[match.end() :]
        if int(match.group()) > 0:
            yield 1, line[: match.start()] + str(int(match.group()) - 1) + line[match.end() :]
    for match in re.finditer(r" (<=|>=|<|>) ", code):
        other = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}[match.group(1)]
        yield 1, line[: match.start(1)] + other + line[match.end(1) :]


def other_constants(lines, index, families):
    line, code = lines[index], code_only(lines[index])
    for match in re.finditer(r"(\w+)::(\w+)\b(?!::)", code):
        names = families.relatives(match.group(1), match.group(2))
        for name in random.Random(f"{index}{match.group()}").sample(names, min(2, len(names))):
            yield 1, line[: match.start(2)] + name + line[match.end(2) :]


def changed_texts(lines, index):
    line, code = lines[index], code_only(lines[index])
    quotes = [i for i, character in enumerate(code) if character == '"']
    for opening, closing in zip(quotes[::2], quotes[1::2]):
        yield 1, line[:closing] + "?" + line[closing:]


STATEMENT = re.compile(r"^\s+(?!return\b.|else\b|const\b|auto\b|case\b|if\b|for\b|delete\b)[\w:>.()*\-]+(\(| = | [+*/\-]= ).*;$")
LEAVING = re.compile(r"^\s+(return|break|continue);$")


def is_statement(lines, index):
    code = code_only(lines[index]).rstrip()
    before = code_only(lines[index - 1]).strip() if index else ""
    whole = before == "" or before.endswith((";", "{", "}", ")", "else", ":"))
    balanced = code.count("(") == code.count(")")
    return whole and balanced and bool(STATEMENT.match(code) or LEAVING.match(code))


def deleted_statements(lines, index):
    if is_statement(lines, index):
        indent = lines[index][: len(lines[index]) - len(lines[index].lstrip())]
        yield 1, indent + ";"


SILENT_CHOICE = r"(?:selectSilently|clearSilently)\(ui->(?P<box>\w+)[,)]"
PLAIN_SETTER = (r"(?:ui\.|ui->)?(?P<widget>\w+)(?:->|\.)(?P<property>hide|show|clear|setVisible|setEnabled|ResetEnable"
                r"|setText|SetTitle|setStyleType|setFixedWidth|setDecimals|setMinimum|setMaximum|setMode|SetMode"
                r"|setMaxLength|SetExceptDayOfWeek|SetExceptDateList|SetMinDate|SetMaxDate|setSearchEnabled)\(")
SETTER = re.compile(rf"^(?:{SILENT_CHOICE}|{PLAIN_SETTER})")


def order_is_nothing(first, second):
    """Returns true if two statements can be swapped without an effect: changes of two widgets with blocked signals, a
    maximum length and another property, entries under two keys of a map, two connections."""
    both = [SETTER.match(first), SETTER.match(second)]
    if all(both):
        widgets = {each["box"] or each["widget"] for each in both}
        if len(widgets) == 2 or "setMaxLength" in {each["property"] for each in both}:
            return True
    entry = re.compile(r"^(\w+)\.insert\(([^,]+), |^[\w:]*insert[A-Z]\w*\((record|other|data), ")
    both = [entry.match(first), entry.match(second)]
    if all(both) and (not both[0].group(2) or both[0].group(2) != both[1].group(2)):
        return True
    return first.startswith("connect(") and second.startswith("connect(")


def swapped_calls(lines, index):
    if index + 1 >= len(lines) or re.search(r"\bq(Debug|Info)\(\)", lines[index + 1]):
        return
    first, second = lines[index], lines[index + 1]
    indents = [len(each) - len(each.lstrip()) for each in (first, second)]
    if indents[0] != indents[1] or first == second:
        return
    in_table = all(re.fullmatch(r"\s+\w+,", each) for each in (first, second))
    calls = all(is_statement(lines, i) and not LEAVING.match(lines[i]) for i in (index, index + 1))
    one_branch = code_only(lines[index - 1]).strip().endswith((")", "else")) if index else False
    if in_table or (calls and not one_branch and not order_is_nothing(first.strip(), second.strip())):
        yield 2, second + "\n" + first


class Families:
    """Constants of the same type in a namespace or an enumeration of a header."""

    def __init__(self, headers, aliases_of):
        self.members = {}
        self.aliases = dict(re.findall(r"\bnamespace (\w+) = [\w:]*?(\w+);", aliases_of))
        for header in headers:
            self.read(header.read_text(encoding="utf-8"))

    def read(self, text):
        stack = []
        for line in text.splitlines():
            code = code_only(line).strip()
            if opened := re.match(r"(?:namespace|enum class|enum|class|struct) (\w+)[^;{]*\{", code):
                stack.append((opened.group(1), code.startswith("enum")))
            elif code.endswith("{"):
                stack.append((None, False))
            if stack and (constant := re.match(r"(?:extern |inline |static )?const(?:expr)? ([\w:<>]+) (\w+)( =|;)", code)):
                self.add(stack[-1][0], constant.group(1), constant.group(2))
            elif stack and stack[-1][1]:
                body = code.split("{")[-1].split("}")[0]
                for name in re.findall(r"\b([A-Za-z_]\w*)\b(?= = [^,]+,| = [^,]+$|,|$| )", body):
                    self.add(stack[-1][0], "enum", name)
            for _ in range(code.count("}")):
                if stack:
                    stack.pop()

    def add(self, family, kind, name):
        names = self.members.setdefault(family, {}).setdefault(kind, [])
        if name not in names:
            names.append(name)

    def relatives(self, family, name):
        for names in self.members.get(self.aliases.get(family, family), {}).values():
            if name in names:
                return [each for each in names if each != name]
        return []


def candidates(tree):
    sources = sorted(path for path in (tree / EDITOR).iterdir() if path.suffix in (".cpp", ".h"))
    headers = sorted((tree / "platform").glob("*.h")) + [path for path in sources if path.suffix == ".h"]
    found = []
    for source in sources:
        if source.name in ("Today.cpp", "Today.h", "AutoParamSettingExport.h"):
            continue  # the tests set the date; other tests check the exports
        text = source.read_text(encoding="utf-8")
        families = Families(headers, text)
        lines = text.split("\n")
        for index in mutable_lines(lines):
            for kind, mutations in (
                ("negated condition", negated_conditions(lines, index)),
                ("swapped order", swapped_calls(lines, index)),
                ("off by one", off_by_one(lines, index)),
                ("another constant", other_constants(lines, index, families)),
                ("deleted statement", deleted_statements(lines, index)),
                ("changed text", changed_texts(lines, index)),
            ):
                for length, after in mutations:
                    before = "\n".join(lines[index : index + length])
                    if after != before:
                        found.append(Mutant(source.name, index, length, kind, before, after))
    return list(dict.fromkeys(found))


def in_order_of_seed(mutants, seed):
    """Shuffles mutants by what they change, so that moved or added lines do not change the order of the other mutants."""
    seen = Counter()

    def place(mutant):
        key = f"{seed} {mutant.file} {mutant.kind} {mutant.change()}"
        seen[key] += 1
        return hashlib.sha256(f"{key} {seen[key]}".encode()).digest()

    return sorted(mutants, key=place)


# --- Building mutants


def run(command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, errors="replace", **options)


def stop(message, output=""):
    sys.exit("\n".join(filter(None, [output[-4000:], message])))


def copy_changed(source, target):
    """Copies a file with the current time, unless both are equal: ninja compares times."""
    if not os.path.exists(target) or not filecmp.cmp(source, target, shallow=False):
        shutil.copy(source, target)


class Build:
    """The complete build of the tree. Workers use its commands and its unchanged objects."""

    def __init__(self, folder):
        self.tree = folder / "tree"
        self.build = folder / "build"
        shutil.copytree(ROOT, self.tree, ignore=shutil.ignore_patterns(".git", "build"), dirs_exist_ok=True,
                        copy_function=copy_changed)
        # Most of the compilation time is spent on the same headers; with ccache, they would not be precompiled.
        precompiled = folder / "precompiled.cmake"
        precompiled.write_text(
            "cmake_language(DEFER CALL target_precompile_headers autoparamsetting_objects PRIVATE"
            " <QtWidgets> <QJsonDocument> <QRegularExpression>)\n")
        done = run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w", "-DAUTOPARAMSETTING_CLIENT=OFF",
                    "-DAUTOPARAMSETTING_PLATFORM=scripted_platform",
                    "-DCCACHE_PROGRAM=OFF", f"-DCMAKE_PROJECT_AutoParamSetting_INCLUDE={precompiled}"])
        if done.returncode:
            stop("The copy of the tree cannot be configured.", done.stdout)
        done = run(["ninja", "-C", self.build, f"-j{os.cpu_count()}", *TESTS, *PURE_TESTS])
        if done.returncode:
            stop("The copy of the tree cannot be built.", done.stdout)
        self.compilations = {
            Path(entry["file"]).relative_to(self.tree).as_posix(): self.tokens(entry["command"])
            for entry in json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8"))
            if Path(entry["file"]).is_relative_to(self.tree)
            and not entry["file"].endswith("tst_exploration.cpp")
        }
        links = run(["ninja", "-C", self.build, "-t", "commands", *TESTS, *PURE_TESTS]).stdout.splitlines()
        self.links = {target: self.link_command(links, target) for target in [*TESTS, *PURE_TESTS]}
        self.seconds = {}

    @staticmethod
    def tokens(command):
        tokens = shlex.split(command)
        return tokens[1:] if Path(tokens[0]).name == "ccache" else tokens

    def link_command(self, commands, target):
        output = f"-o bin/{target} "
        for command in commands:
            if output in command + " ":
                return self.tokens(re.sub(r"^: && | && :$", "", command))
        stop(f"No command links {target}.")

    def users_of(self, header):
        """Returns the sources of the editor that include a header, directly or indirectly, also through the form."""
        readers = {header}
        files = [path for path in (self.tree / EDITOR).iterdir() if path.suffix in (".cpp", ".h", ".ui")]
        while True:
            names = "|".join(map(re.escape, readers))
            pattern = re.compile(rf'#include "({names})"|<header>({names})</header>')
            found = {f"ui_{path.stem}.h" if path.suffix == ".ui" else path.name
                     for path in files if pattern.search(path.read_text(encoding="utf-8"))}
            if found <= readers:
                return sorted(name for name in readers if name.endswith(".cpp") and name != "Today.cpp")
            readers |= found

    def measure(self):
        for test in TESTS + PURE_TESTS:
            start = time.monotonic()
            done = run([self.build / "bin" / test, *ARGUMENTS.get(test, [])], timeout=600, cwd=self.build)
            if done.returncode:
                stop(f"{test} fails without any mutant.", done.stdout)
            self.seconds[test] = time.monotonic() - start


class Worker:
    """A folder with the editor's sources, one of them mutated, and the files built from it."""

    def __init__(self, build, folder):
        self.build = build
        self.sources = folder / EDITOR
        self.objects = folder / "objects"
        self.bin = folder / "bin"
        self.run = folder / "run"
        shutil.rmtree(folder, ignore_errors=True)
        shutil.copytree(build.tree / EDITOR, self.sources)
        for each in (self.objects, self.bin, self.run):
            each.mkdir()

    def compile(self, source, own_source, built):
        tokens = list(self.build.compilations[source])
        old = tokens[tokens.index("-o") + 1]
        new = str(self.objects / Path(old).name)
        tokens[tokens.index("-o") + 1] = new
        tokens[tokens.index("-c") + 1] = str(own_source)
        tokens = [token for token in tokens if not token.startswith(("-MD", "-MMD"))]
        for option in ("-MT", "-MF"):
            if option in tokens:
                del tokens[tokens.index(option) : tokens.index(option) + 2]
        tokens.insert(1, f"-I{self.sources}")
        if run(tokens, cwd=self.build.build).returncode:
            return False
        built[old] = new
        return True

    def link(self, target, built):
        """Links a test with the new objects: in place of its own, or before the library that has the old ones."""
        old = self.build.links[target]
        tokens = [built.get(token, token) for token in old]
        place = tokens.index("-o") + 1
        tokens[place] = str(self.bin / target)
        if any(Path(token).name == LIBRARY for token in old):
            tokens[place + 1 : place + 1] = [
                new for token, new in built.items() if token not in old and token.startswith(f"{EDITOR}/")]
        return run(tokens, cwd=self.build.build).returncode == 0

    def make(self, mutant):
        """The new objects by the old ones; None for a mutant that does not compile."""
        built = {}
        if mutant.file.endswith(".cpp"):
            if not self.compile(f"{EDITOR}/{mutant.file}", self.sources / mutant.file, built):
                return None
        else:
            for name in self.build.users_of(mutant.file):
                if not self.compile(f"{EDITOR}/{name}", self.sources / name, built):
                    return None
            for test in FIRST_TESTS.get(mutant.file, []):
                if not self.compile(f"tests/{test}.cpp", self.build.tree / "tests" / f"{test}.cpp", built):
                    return None
        return built

    def first_that_notices(self, tests, built):
        for test in tests:
            if not self.link(test, built):
                return f"{test} (does not link)"
            limit = max(SHORTEST_TIMEOUT, TIMEOUT_FACTOR * self.build.seconds[test])
            try:
                done = run(["prlimit", f"--cpu={CPU_LIMIT}", self.bin / test, *ARGUMENTS.get(test, [])], cwd=self.run,
                           timeout=limit)
            except subprocess.TimeoutExpired:
                return f"{test} (time-out)"
            if done.returncode in (-signal.SIGXCPU, -signal.SIGKILL):
                return f"{test} (time-out)"
            if done.returncode:
                return f"{test} (crash)" if done.returncode < 0 else test
        return None

    def judge(self, mutant):
        """Returns None if the mutant does not compile, else the test that noticed it, or an empty text."""
        path = self.sources / mutant.file
        whole = path.read_text(encoding="utf-8")
        lines = whole.split("\n")
        lines[mutant.line : mutant.line + mutant.length] = mutant.after.split("\n")
        path.write_text("\n".join(lines), encoding="utf-8")
        try:
            first = FIRST_TESTS.get(mutant.file, [])
            tests = first + [test for test in TESTS if test not in first]
            built = self.make(mutant)
            return None if built is None else self.first_that_notices(tests, built) or ""
        finally:
            path.write_text(whole, encoding="utf-8")


# --- Running the tests


def equal_programs():
    """Returns the equivalent mutants from scripts/equal-mutants.txt: file, change and reason."""
    reasons = {}
    for line in (ROOT / "scripts" / "equal-mutants.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            file, change, reason = line.split(" | ")
            reasons[file, change] = reason
    return reasons


def judge_all(mutants, count, jobs, build, folder):
    """Yields mutants that compile, with their results, until there are enough."""
    free = [Worker(build, folder / f"worker{number}") for number in range(jobs)]
    lock = threading.Lock()

    def work(mutant):
        with lock:
            worker = free.pop()
        try:
            return mutant, worker.judge(mutant)
        finally:
            with lock:
                free.append(worker)

    waiting = iter(mutants)
    compiled, running = 0, set()
    with ThreadPoolExecutor(jobs) as pool:
        while True:
            while len(running) < jobs and compiled + len(running) < count:
                mutant = next(waiting, None)
                if mutant is None:
                    break
                running.add(pool.submit(work, mutant))
            if not running:
                return
            done, running = wait(running, return_when=FIRST_COMPLETED)
            for each in done:
                mutant, noticed = each.result()
                if noticed is not None:
                    compiled += 1
                    yield mutant, noticed


def break_and_tell(mutants, options, folder):
    equal = equal_programs()
    total = noticed_by_tests = explained = 0
    build = Build(folder)
    build.measure()
    for mutant, noticed in judge_all(mutants, options.count, options.jobs, build, folder):
        total += 1
        noticed_by_tests += bool(noticed)
        reason = equal.get((mutant.file, mutant.change()))
        explained += bool(reason and not noticed)
        verdict = f"noticed by {noticed}" if noticed else f"SURVIVED, equal: {reason}" if reason else "SURVIVED"
        print(f"{total} {mutant.where()} {mutant.kind}: {mutant.change()}: {verdict}")
    print(f"survivors {total - noticed_by_tests}, of them equivalent {explained}")
    print(f"mutants {total} noticed {noticed_by_tests}")


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate")
    parser.add_argument("count", nargs="?", type=int, default=300)
    parser.add_argument("seed", nargs="?", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--only", default="", help="only mutants whose file, line, kind and change match this pattern")
    parser.add_argument("--folder", help="build folder; it is kept, so that the next run builds only changes")
    parser.add_argument("--list", action="store_true", help="list the candidates without building them")
    options = parser.parse_args()
    sys.stdout.reconfigure(line_buffering=True)

    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    mutants = in_order_of_seed(candidates(ROOT), options.seed)
    pattern = re.compile(options.only)
    mutants = [each for each in mutants if pattern.search(f"{each.where()} {each.kind}: {each.change()}")]
    if options.list:
        for each in mutants:
            print(f"{each.where()} {each.kind}: {each.change()}")
        return

    if options.folder:
        break_and_tell(mutants, options, Path(options.folder).resolve())
        return
    with tempfile.TemporaryDirectory(prefix="mutate-") as name:
        break_and_tell(mutants, options, Path(name))


if __name__ == "__main__":
    main()
