#!/usr/bin/env python3
"""Plants small faults in a copy of the sources, one at a time, and says which of them the tests notice.

./test --faults SEED N          plants N; the same with the same seed, as long as the sources are the same.
./test --faults SEED FIRST-LAST plants just these of them.
tests/faults.py --self-check    tries the reading of sources on a few lines.

Everything happens in build/faults: `tree` is the copy, `build` what is made of it, `map.json` which functions each test
enters and how long it takes. The map is learned in one run of the tests, and again whenever the sources have changed.
A fault is tried on the tests that enter its function, those with a like name and the short ones first, until one fails.
A fault in a function that no test enters is not noticed, without a run.

No fault: comments, directives, texts, lines that log, and what the compiler refuses (another is drawn in its place).
What only leaks is not drawn either: that is for the sanitizers. A source is read as the formatter leaves it: what
stands outside of everything begins in the first column, and operators between two values stand between blanks.
"""
import fcntl
import filecmp
import hashlib
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from collections import defaultdict, namedtuple
from concurrent.futures import ThreadPoolExecutor
from contextlib import suppress
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HOME = ROOT / "build" / "faults"
TREE, BUILD, MAP, BROKEN = HOME / "tree", HOME / "build", HOME / "map.json", HOME / "compiler.log"
FOLDERS = ("inc/", "source/", "menuitem/", "platform/desktop/", "tessarin/")
TARGETS = ("quirelle", "quirelle-tv", "theme", "catalogues", "profiles", "quirelle-tests")
SPARE = 8  # faults kept for each one asked for: as many may be refused by the compiler
BATCH_SECONDS = 4
MEMORY_KIB = 8 << 20

# --- reading a source ----------------------------------------------------------------------------------------------

# What is at `start` to `end` of a file's text becomes `after`.
Fault = namedtuple("Fault", "file line kind start end after")
# A function, a class or a value outside of everything; `private` is what only its file sees.
Block = namedtuple("Block", "first last header function private")

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/|^#(?:\\\n|[^\n])*", re.S | re.M)
STRING = re.compile(r"""R"(?P<fence>[^(\n]*)\(.*?\)(?P=fence)"|"(?:\\.|[^"\\\n])*"|
                        (?<![\da-fA-F])'(?:\\.|[^'\\\n])+'""".replace("\n" + " " * 24, ""), re.S)
NO_FAULT = re.compile(r"^[^\n]*\bLOG_\w+\((?:[^;]|\n)*;|^ *(?:static_assert|using|namespace|template)\b[^;{\n]*|"
                      r"__attribute__\(\(.*?\)\)|\boperator\W+\(", re.M)
TURNED = {"==": ["!="], "!=": ["=="], "<": ["<=", ">"], ">": [">=", "<"], "<=": ["<", ">="], ">=": [">", "<="],
          "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "&": ["|"], "|": ["&"],
          "++": ["--"], "--": ["++"], "+=": ["-="], "-=": ["+="]}
OPERATOR = re.compile(r"(?<=\s)(==|!=|<=?|>=?|&&|\|\||[-+*/&|])(?=\s)|(\+\+|--|[-+]=)")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][\da-fA-F']+|\d[\d']*\.?\d*(?:[eE][+-]?\d+)?)([uUlLfF]*)(?![\w.])")
STATEMENT = re.compile(r"(?:(?<=[;{}:)])|(?<=else)|(?<=do))\s+(?!(?:if|else|for|while|do|switch|return)\b)(?=[\w*+-])")
ASSIGNMENT = re.compile(r"(?<![=!<>])(?:[-+*/%&|^]|<<|>>)?=(?!=)|\+\+|--")

SAME = ("{}", "0", "false", "nullptr", '""')  # as what stands in place of a return value


def masked(text):
    """The same text, as long, without what bears no fault; texts become words."""
    text = re.sub(COMMENT.pattern + "|" + STRING.pattern,
                  lambda m: "_" * len(m[0]) if m[0][0] in "R\"'" else re.sub(r"[^\n]", " ", m[0]), text,
                  flags=re.S | re.M)
    return NO_FAULT.sub(lambda m: re.sub(r"[^\n(){}\[\];]", " ", m[0]), text)


def blocks(text, code):
    """Everything that begins in the first column, but namespaces: these are looked into."""
    found, first, depth, spaces, plain = [], 0, 0, [], text.split("\n")
    for number, line in enumerate(code.split("\n"), 1):
        whole = plain[number - 1]
        if not first:
            if re.match(r"(inline )?namespace\b|extern \"C\" \{", whole):
                spaces.append(whole == "namespace {")
                continue
            del spaces[len(spaces) - (line[:1] == "}"):]
            if not re.match(r"[A-Za-z_]", whole):
                continue
            first = number
        depth += sum(map(line.count, "([{")) - sum(map(line.count, ")]}"))
        if depth == 0 and line.rstrip().endswith((";", "}")):
            header = re.split(r"[({=]", "\n".join(plain[first - 1:number]))[0]
            words = set(re.findall(r"\w+", header))
            function = line.rstrip().endswith("}") and "constexpr" not in words
            private = "extern" not in words and (any(spaces) or bool(words & {"static", "constexpr"}))
            found.append(Block(first, number, header, function, private))
            first = 0
    return found


def closing(code, at, statement=False):
    """Where the bracket around this place, or the statement that begins here, ends."""
    depth = 0
    for match in re.compile(r"[(\[{]|[)\]}]|;").finditer(code, at):
        depth += 1 if match[0] in "([{" else -1 if match[0] in ")]}" else 0
        if depth < 0 or (statement and depth == 0 and match[0] == ";"):
            return match.start()
    return len(code)


def one_off(digits, step):
    if not digits.lower().startswith("0x") and any(mark in digits for mark in ".eE"):
        return repr(float(digits) + step)
    octal = re.fullmatch(r"0(\d+)", digits)
    value = abs(int(octal[1], 8) if octal else int(digits, 0)) + step
    return (hex if digits[:2] in ("0x", "0X") else "0{:o}".format if octal else str)(abs(value))


def changes_of(code, header_at):
    """Every (kind, start, end, after) of a source without what bears no fault; `{0}` is what stands there."""
    for m in OPERATOR.finditer(code):
        kind = "a comparison turned" if m[0][0] in "=!<>" else "an operator changed" if m[1] else "a step turned"
        yield from ((kind, *m.span(), after) for after in TURNED[m[0]])
    for m in NUMBER.finditer(code):
        changed = {one_off(m[1].replace("'", ""), step): None for step in (1, -1)}
        yield from (("a constant changed", *m.span(), after + m[2]) for after in changed)
    for m in re.finditer(r"\b(true|false)\b", code):
        yield "a constant changed", *m.span(), "false" if m[0] == "true" else "true"
    for m in re.finditer(r"\b(?:if|while) (?=\()", code):
        start, end = m.end() + 1, closing(code, m.end() + 1)
        start = max(start, code.rfind("; ", start, end) + 2)
        if not re.search(r"(?<![=!<>])=(?!=)", re.sub(r"\([^()]*\)", "", code[start:end])):
            yield "a condition negated", start, end, "!({0})"
    for m in re.finditer(r"!(?=[\w(:])", code):
        yield "a condition negated", *m.span(), ""
    for m in re.finditer(r"(?<=\S)\s\?(?=\s)", code):
        yield "a condition negated", *m.span(), " == 0 ?"
    for m in re.finditer(r"\breturn (?=[^;])", code):
        boolean = re.search(r"\bbool\b(?!.*\w\s*$)|\bbool [\w:]+$", header_at(m.start()))
        yield "a return value changed", m.end(), closing(code, m.end(), True), "!({0})" if boolean else "{{}}"
    for m in STATEMENT.finditer(code):
        end = closing(code, m.end(), True)
        said = code[m.end():end]
        while (inner := re.sub(r"\([^()]*\)|\[[^\[\]]*\]|\{[^{}]*\}|<[\w:*, ]+>|\s+(?=\.|->)", "", said)) != said:
            said = inner
        assigned = ASSIGNMENT.search(said)
        target = said[:assigned.start()].rstrip() if assigned else said
        calls = assigned or code[end - 1:end] == ")"
        # With a blank in it, it is a declaration, or begins with a keyword.
        if calls and code[end:end + 1] == ";" and not re.search(r"\s", target):
            yield ("an assignment" if assigned else "a call") + " taken out", m.end(), end + 1, "{{}}"


def faults_of(name, text):
    """Every fault that can be planted in a source, in the order of the file."""
    code = masked(text)
    headers = {number: block.header for block in blocks(text, code) for number in range(block.first, block.last + 1)}

    def line_of(at):
        return text.count("\n", 0, at) + 1
    changes = changes_of(code, lambda at: headers.get(line_of(at), ""))
    return sorted((Fault(name, line_of(start), kind, start, end, after.format(text[start:end]))
                   for kind, start, end, after in changes if after != "{{}}" or text[start:end] not in SAME),
                  key=lambda fault: fault.start)


def draw(sources, seed):
    """The faults of a seed, in their order: at most one for each line, every line as likely as the next."""
    lines = defaultdict(lambda: defaultdict(list))
    for name in sorted(sources):
        for fault in faults_of(name, sources[name]):
            lines[name, fault.line][fault.kind].append(fault)
    dice = random.Random(seed)
    faults = [dice.choice(kinds[dice.choice(sorted(kinds))]) for _, kinds in sorted(lines.items())]
    dice.shuffle(faults)
    return faults


# --- the copy and its build ----------------------------------------------------------------------------------------

# Linked into every program and library: writes down each function that is entered, once.
RECORDER = r"""
#include <dlfcn.h>
#include <fcntl.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
// Each program and library calls its own recorder; the compiler knows these two as visible and minds no attribute.
asm(".hidden __cyg_profile_func_enter\n.hidden __cyg_profile_func_exit");
extern "C" __attribute__((visibility("hidden"))) char __ehdr_start[];
static bool g_entered[1 << 26];
static int Notes() {
  const char* folder = getenv("QUIRELLE_FAULTS_NOTES");
  Dl_info self;
  if (!folder || !*folder || !dladdr(__ehdr_start, &self)) return -1;
  const std::string path = std::string(folder) + "/" + basename(self.dli_fname);
  return open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
}
extern "C" void __cyg_profile_func_enter(void* function, void*) {
  static const int notes = Notes();
  const unsigned long at = static_cast<char*>(function) - __ehdr_start;
  if (notes < 0 || at >= sizeof g_entered || g_entered[at]) return;
  g_entered[at] = true;
  dprintf(notes, "%lx\n", at);
}
extern "C" void __cyg_profile_func_exit(void*, void*) {}
"""
FLAGS = "-O0 -g1 -finstrument-functions -finstrument-functions-exclude-file-list=/usr/"


def files_of(folder):
    """Everything in a tree but what is built and what git keeps."""
    tops = [top for top in folder.iterdir() if top.name not in ("build", ".git")]
    files = (path for top in tops for path in ([top] if top.is_file() else top.rglob("*")))
    return sorted(str(path.relative_to(folder)) for path in files if path.is_file() and "__pycache__" not in path.parts)


def copy_tree():
    """Only what differs is written, so that only that is built. The names, and a digest of what the map depends on."""
    TREE.mkdir(parents=True, exist_ok=True)
    names, digest = files_of(ROOT), hashlib.sha256((RECORDER + FLAGS).encode())
    for name in set(files_of(TREE)) - set(names):
        (TREE / name).unlink()
    for name in names:
        old, new = TREE / name, ROOT / name
        if not old.is_file() or not filecmp.cmp(new, old, shallow=False):
            old.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(new, old)  # with the time of now: what was built of another text is older
        if not name.startswith("docs/") and not name.endswith((".md", ".py")):
            digest.update(name.encode() + b"\0" + old.read_bytes())
    return names, digest.hexdigest()


def configure(recorder):
    BUILD.mkdir(parents=True, exist_ok=True)
    if (BUILD / "build.ninja").exists():
        return
    compiler = ["c++", "-x", "c++", "-O2", "-fPIC", "-c", "-", "-o", recorder]
    subprocess.run(compiler, input=RECORDER, text=True, check=True)
    links = [f"-DCMAKE_{kind}_LINKER_FLAGS={recorder}" for kind in ("EXE", "SHARED", "MODULE")]
    subprocess.run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache",
                    "-DCMAKE_BUILD_TYPE=", f"-DCMAKE_CXX_FLAGS={FLAGS}", *links], check=True, stdout=subprocess.DEVNULL)


def build():
    """Whether it can be built; what the compiler says is in compiler.log."""
    with open(BROKEN, "w") as log:
        return subprocess.run(["ninja", "-C", BUILD, *TARGETS], stdout=log, stderr=log).returncode == 0


# --- running tests ---------------------------------------------------------------------------------------------------

# How a run of some tests went: `test` is the one that failed, "" before any began, None when none did.
Outcome = namedtuple("Outcome", "test how passed")


def kill(process):
    """The process and what it started."""
    with suppress(ProcessLookupError):
        os.killpg(process.pid, signal.SIGKILL)


class Runs:
    """Runs of tests, each in a process of its own, which can all be ended at once."""

    def __init__(self):
        self.running, self.over, self.lock = set(), False, threading.Lock()

    def end(self):
        with self.lock:
            self.over = True
            for process in self.running:
                kill(process)

    def run(self, tests, seconds, notes=""):
        """The tests up to the first that fails; None when the end came first."""
        words = [BUILD / "quirelle-tests", "--gtest_filter=" + ":".join(tests), "--gtest_fail_fast"]
        limit = f'ulimit -c 0; ulimit -v {MEMORY_KIB}; exec "$@"'
        with tempfile.TemporaryDirectory(prefix="quirelle-faults-", ignore_cleanup_errors=True) as folder:
            with open(Path(folder) / "said", "w+", errors="replace") as said, self.lock:
                if self.over:
                    return None
                process = subprocess.Popen(["sh", "-c", limit, "sh", *words], cwd=BUILD, stdin=subprocess.DEVNULL,
                                           stdout=said, stderr=subprocess.DEVNULL, start_new_session=True,
                                           env=dict(os.environ, TMPDIR=folder, QUIRELLE_FAULTS_NOTES=notes))
                self.running.add(process)
            with suppress(subprocess.TimeoutExpired):
                process.wait(seconds)
            how = "hung" if process.poll() is None else "crashed"
            kill(process)
            with self.lock:
                self.running.discard(process)
            if self.over:
                return None
            status = process.wait()
            told = re.findall(r"^\[( RUN      |       OK |  FAILED  )\] ([^ ,\n]+\.[^ ,\n]+)",
                              (Path(folder) / "said").read_text(errors="replace"), re.M)
        passed = [test for word, test in told if "OK" in word]
        failed = next((test for word, test in told if "FAILED" in word), None)
        if failed or status == 0:
            return Outcome(failed, "", passed)
        return Outcome(told[-1][1] if told else "", how, passed)


def each_of(work, items):
    with ThreadPoolExecutor(os.cpu_count()) as workers:
        list(workers.map(work, items))


def list_tests():
    listed = subprocess.run([BUILD / "quirelle-tests", "--gtest_list_tests"], check=True, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    suites = re.findall(r"^(\S+\.)[^\n]*\n((?:  [^\n]+\n)+)", listed, re.M)
    return [suite + line.split()[0] for suite, lines in suites for line in lines.splitlines()]


# --- the map: which functions each test enters -----------------------------------------------------------------------

def places(module, offsets, sources):
    """Offsets of a program or library as (file, line) of our sources."""
    binary = next(path for path in BUILD.rglob(module) if path.is_file())
    asking = subprocess.run(["addr2line", "-e", binary], input="\n".join(offsets), text=True, check=True,
                            stdout=subprocess.PIPE)
    found = {}
    for offset, line in zip(offsets, asking.stdout.splitlines()):
        path, at = line.split(" ")[0].rsplit(":", 1)
        name = os.path.relpath(path, TREE)
        if name in sources and at.isdigit():
            found[offset] = (name, int(at))
    return found


def learn(sources, key):
    """Runs each test by itself on the healthy tree."""
    print("Learning which functions each test enters", file=sys.stderr)
    tests, entered, functions = {}, defaultdict(dict), defaultdict(lambda: defaultdict(list))

    def run(test):
        with tempfile.TemporaryDirectory(prefix="quirelle-faults-") as notes:
            begin = time.monotonic()
            healthy = Runs().run([test], 600, notes) == Outcome(None, "", [test])
            tests[test] = {"seconds": time.monotonic() - begin, "healthy": healthy}
            for path in Path(notes).iterdir():
                entered[path.name][test] = path.read_text().split()
    each_of(run, list_tests())
    for module, by_test in entered.items():
        found = places(module, sorted(set().union(*by_test.values())), sources)
        for test, offsets in by_test.items():
            for name, line in {found[offset] for offset in offsets if offset in found}:
                functions[name][line].append(test)
    learned = {"key": key, "tests": tests, "functions": functions}
    MAP.write_text(json.dumps(learned, sort_keys=True))
    return json.loads(MAP.read_text())


class Tests:
    """Which tests to try a fault on, in which order."""

    def __init__(self, learned):
        self.seconds = {name: test["seconds"] for name, test in learned["tests"].items() if test["healthy"]}
        self.ill = sorted(name for name, test in learned["tests"].items() if not test["healthy"])
        self.functions = {name: {int(line): set(tests) & set(self.seconds) for line, tests in lines.items()}
                          for name, lines in learned["functions"].items()}

    def of(self, fault, text):
        """The tests that a fault could be noticed by."""
        lines = self.functions.get(fault.file, {})
        whole = set().union(*lines.values())
        block = next((block for block in blocks(text, masked(text)) if block.first <= fault.line <= block.last), None)
        entered = block and set().union(*(tests for line, tests in lines.items() if block.first <= line <= block.last))
        if entered or (block and block.function):
            return entered
        # What the compiler works out itself is seen by whoever uses the file, or everything.
        return whole if whole and block and block.private else set(self.seconds)

    def batches(self, fault, tests):
        """The order to try them in: like names first, then the short ones, some in each process."""
        words = names_in(Path(fault.file).stem)
        cost = {test: self.seconds[test] * (0.2 if words & names_in(test.split(".")[0]) else 1) for test in tests}
        batches, room = [], 0
        for test in sorted(tests, key=lambda test: (cost[test], test)):
            if room <= 0 or self.seconds[test] > BATCH_SECONDS:
                batches.append([])
                room = BATCH_SECONDS
            batches[-1].append(test)
            room -= self.seconds[test]
        return batches

    def limit(self, tests):
        return 20 + 5 * sum(self.seconds[test] for test in tests)


def names_in(text):
    """TvRating and ViewTvRatingWindow have "rating" in common."""
    common = {"view", "window", "test", "util", "table", "data", "base", "content", "desktop"}
    return {word.lower() for word in re.findall(r"[A-Z]?[a-z]{3,}|[A-Z]{3,}(?![a-z])", text)} - common


# --- planting --------------------------------------------------------------------------------------------------------

def hunt(tests, batches):
    """The test that notices the planted fault, or None; and those that failed only after others, or only once."""
    runs, noticed, doubtful = Runs(), [], []

    def go(batch):
        while batch and (outcome := runs.run(batch, tests.limit(batch))) and outcome.test is not None:
            again = outcome.test and outcome.how != "hung" and runs.run([outcome.test], tests.limit([outcome.test]))
            if not again or again.test is not None:
                if not runs.over:
                    noticed.append((outcome.test or "the start of the tests") + (outcome.how and f" ({outcome.how})"))
                return runs.end()
            doubtful.append(outcome.test)
            batch = [test for test in batch if test not in outcome.passed and test != outcome.test]
    each_of(go, batches)
    return (noticed or [None])[0], doubtful


def planted(text, fault):
    return text[:fault.start] + fault.after + text[fault.end:]


def describe(number, fault, text):
    def lines(of, end):
        first, last = of.rfind("\n", 0, fault.start) + 1, of.find("\n", end)
        return " ".join(of[first:last].split())
    before, after = lines(text, fault.end), lines(planted(text, fault), fault.start + len(fault.after))
    return f"{number:3} {fault.file}:{fault.line}: {fault.kind}\n    - {before}\n    + {after}"


def first_taken(faults, sources):
    """Plants the first that the compiler takes; it and the number of those that it refused."""
    for refused, fault in enumerate(faults):
        (TREE / fault.file).write_text(planted(sources[fault.file], fault))
        if build():
            return fault, refused
        (TREE / fault.file).write_text(sources[fault.file])
    sys.exit(f"The compiler refused {len(faults)} faults in a row; see {BROKEN}")


def report(drawn, wanted, sources, tests):
    found, refused, missed = 0, 0, []
    for number in wanted:
        begin = time.monotonic()
        fault, more = first_taken(drawn[(number - 1) * SPARE:number * SPARE], sources)
        refused += more
        said = describe(number, fault, sources[fault.file])
        print(said, flush=True)
        try:
            likely = tests.of(fault, sources[fault.file])
            noticed, doubtful = hunt(tests, tests.batches(fault, likely))
        finally:
            (TREE / fault.file).write_text(sources[fault.file])
        why = f"by none of {len(likely)} tests" if likely else "no test comes here"
        why += ", though once, not alone, by " + ", ".join(doubtful) if doubtful else ""
        found += bool(noticed)
        print(f"    {'noticed by ' + noticed if noticed else 'NOT NOTICED: ' + why}, {time.monotonic() - begin:.0f} s",
              flush=True)
        if not noticed:
            missed.append(f"{said}\n    {why}")
    if missed:
        print("Not noticed:", *missed, sep="\n")
    print(f"{found} of {len(wanted)} noticed ({100 * found / len(wanted):.0f} %); "
          f"{refused} more refused by the compiler")


def hunt_all(seed, wanted):
    HOME.mkdir(parents=True, exist_ok=True)
    with open(HOME / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        names, key = copy_tree()
        configure(BUILD / "recorder.o")
        if not build():
            sys.exit(f"The sources as they are cannot be built; see {BROKEN}")
        sources = {name: (TREE / name).read_text() for name in names if name.endswith(".cpp") and
                   name.startswith(FOLDERS)}
        learned = json.loads(MAP.read_text()) if MAP.exists() else {}
        tests = Tests(learned if learned.get("key") == key else learn(sources, key))
        if tests.ill:
            print(f"Left out, as they fail by themselves: {', '.join(tests.ill)}")
        drawn = draw(sources, seed)
        if wanted[-1] * SPARE > len(drawn):
            sys.exit(f"There are {len(drawn) // SPARE} faults to plant, not {wanted[-1]}")
        report(drawn, wanted, sources, tests)


# --- a check of this file itself -------------------------------------------------------------------------------------

SAMPLE = r"""
#define TWICE(x) ((x) + 2)
namespace {
constexpr int kFirst[] = {1, 0x0F};
}  // namespace
extern const int kShared = 7;
bool View::Close(std::vector<int>& all, int* out) : m_a{all}, m_b(all) {
  const std::vector<int> copy(all);
  if (int n = Count(); !all.empty() && n > 0) LOG_DEBUG("n[%d]", n + 1);
  for (const int n : all) Show("a < b", n);
  *out = all.size() < 2 ? 4 : 5;  // not 6
  return Done(out);
}
"""


def self_check():
    found = {(fault.line, SAMPLE[fault.start:fault.end].strip(), fault.after.strip())
             for fault in faults_of("sample.cpp", SAMPLE)}
    wanted = {(4, "1", "2"), (4, "0x0F", "0x10"), (6, "7", "6"), (10, 'Show("a < b", n);', "{}"), (11, "<", "<="),
              (11, "<", ">"), (11, "?", "== 0 ?"), (11, "*out = all.size() < 2 ? 4 : 5;", "{}"), (11, "2", "3"),
              (12, "Done(out)", "!(Done(out))")}
    assert wanted <= found, wanted - found
    assert {line for line, *_ in found} == {4, 6, 10, 11, 12} and "6" not in {before for _, before, _ in found}, found
    seen = [(block.first, block.last, block.function, block.private) for block in blocks(SAMPLE, masked(SAMPLE))]
    assert seen == [(4, 4, False, True), (6, 6, False, False), (7, 13, True, False)], seen
    assert draw({"sample.cpp": SAMPLE}, 1) == draw({"sample.cpp": SAMPLE}, 1) != draw({"sample.cpp": SAMPLE}, 2)
    print("well")


def main(words):
    if words == ["--self-check"]:
        return self_check()
    asked = re.fullmatch(r"(\d+) (?:(\d+)-)?(\d+)", " ".join(words))
    if not asked or not 0 < int(asked[2] or 1) <= int(asked[3]):
        sys.exit("Usage: ./test --faults SEED N|FIRST-LAST")
    hunt_all(int(asked[1]), range(int(asked[2] or 1), int(asked[3]) + 1))


if __name__ == "__main__":
    main(sys.argv[1:])
