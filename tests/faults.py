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
What only leaks is not drawn either: that is for the sanitizers.
"""
import fcntl
import filecmp
import hashlib
import json
import mmap
import os
import queue
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from bisect import bisect
from collections import Counter, defaultdict, namedtuple
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HOME = ROOT / "build" / "faults"
TREE, BUILD, MAP, BROKEN = HOME / "tree", HOME / "build", HOME / "map.json", HOME / "compiler.log"
FOLDERS = ("inc", "source", "menuitem", "platform/desktop", "tessarin")
TARGETS = ("quirelle", "quirelle-tv", "theme", "catalogues", "profiles", "quirelle-tests")
SPARE = 8  # faults kept for each one asked for: as many may be refused by the compiler
BATCH_SECONDS = 4
WORKERS = os.cpu_count() or 1
MEMORY_KIB = 8 << 20


# --- reading a source ----------------------------------------------------------------------------------------------

Token = namedtuple("Token", "kind text start end line")
# What is at `start` to `end` of a file's text becomes `after`.
Fault = namedtuple("Fault", "file line kind start end after")

TOKEN = re.compile(
    r"""(?P<space>\s+|//[^\n]*|/\*.*?\*/)
      |(?P<directive>\#(?:\\\n|[^\n])*)
      |(?P<string>(?:u8|[uUL])?(?:R"(?P<fence>[^(]*)\(.*?\)(?P=fence)"|"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*'))
      |(?P<number>0[xX][\da-fA-F']+[uUlL]*|(?:\d[\d']*\.?\d*|\.\d+)(?:[eE][+-]?\d+)?[uUlLfF]*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<mark><=>|<<=|>>=|\.\.\.|->|::|\+\+|--|&&|\|\||[=!<>+\-*/%&|^]=|<<|>>|.)""",
    re.S | re.X)

PAIRS = {"(": ")", "[": "]", "{": "}"}
TURNED = {"==": ["!="], "!=": ["=="], "<": ["<=", ">"], ">": [">=", "<"], "<=": ["<", ">="], ">=": [">", "<="]}
SWAPPED = {"&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "&": "|", "|": "&"}
STEPS = {"++": "--", "--": "++", "+=": "-=", "-=": "+="}
ASSIGNS = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
NUMBERS = {"int", "unsigned", "short", "long", "char", "float", "double", "size_t", "ssize_t", "time_t",
           "int8_t", "int16_t", "int32_t", "int64_t", "uint8_t", "uint16_t", "uint32_t", "uint64_t"}
NO_STATEMENT = set("""return if else for while do switch case default break continue goto throw delete new using
    typedef static const constexpr auto struct class enum union namespace template public private protected try catch
    friend extern static_cast const_cast reinterpret_cast static_assert operator co_return co_await co_yield""".split())


class Owner:
    """The function that a token is in: its lines, and its header's tokens."""

    def __init__(self, header, first, last):
        self.header, self.first, self.last = header, first, last
        words = {token.text for token in header}
        self.constant = bool(words & {"constexpr", "consteval"})

    def returns(self):
        """What it answers: bool, number, pointer, other, or None for nothing."""
        words = []
        for token in self.header:
            if token.text == "(":
                break
            words.append(token.text)
        while len(words) > 1 and words[-2] in ("::", "~"):  # the class before the name
            del words[-2:]
        kind = [word for word in words[:-1] if word not in ("static", "inline", "constexpr", "const", "virtual")]
        if not kind or kind == ["void"]:
            return None
        if kind[-1] == "*":
            return "pointer"
        return "bool" if kind == ["bool"] else "number" if set(kind) <= NUMBERS | {"std", "::"} else "other"


class Source:
    """The tokens of a file, how its brackets pair, and where no faults are planted."""

    def __init__(self, name, text):
        self.name, self.text = name, text
        self.newlines = [at.start() for at in re.finditer("\n", text)]
        self.tokens = [Token(m.lastgroup if m.lastgroup != "fence" else "string", m.group(), m.start(), m.end(),
                             self.line_of(m.start()))
                       for m in TOKEN.finditer(text) if m.lastgroup != "space"]
        self._pair()
        self._own()
        self._forbid()

    def line_of(self, at):
        return bisect(self.newlines, at - 1) + 1

    def _pair(self):
        """`match`: the other bracket; `around`: the bracket that a token stands in, -1 for none."""
        self.match, self.around, stack = {}, [], []
        for i, token in enumerate(self.tokens):
            mark = token.text if token.kind == "mark" else ""
            if mark in PAIRS.values() and stack:
                opening = stack.pop()
                self.match[opening], self.match[i] = i, opening
            self.around.append(stack[-1] if stack else -1)
            if mark in PAIRS:
                stack.append(i)

    def _own(self):
        """`owner`: the outermost function of each token; `private`: what only this file sees."""
        count = len(self.tokens)
        self.owner, self.private = [None] * count, [False] * count
        self._walk(0, count, False)

    def _walk(self, i, end, hidden):
        head = i
        while i < end:
            text = self.tokens[i].text
            if self.tokens[i].kind != "mark":
                i += 1
            elif text in "([":
                i = self.match.get(i, i) + 1
            elif text == "{":
                i, head = self._block(head, i, hidden)
            else:
                i += 1
                if text == ";":
                    self._mark(head, i, hidden)
                    head = i

    def _block(self, head, brace, hidden):
        close = self.match.get(brace, len(self.tokens) - 1)
        while self.tokens[head].text == "template" or self.tokens[head].kind == "directive":
            head = self._end_of(head, self.tokens[head].text)
        header = self.tokens[head:brace]
        words = {token.text for token in header if token.kind == "word"}
        flat = self._flat(head, brace)
        opened = flat.index("(") if "(" in flat else None
        if opened is None and words & {"namespace", "class", "struct", "union", "enum", "extern"} and "=" not in flat:
            unnamed = "namespace" in words and header[-1].text == "namespace"
            self._walk(brace + 1, close, hidden or unnamed)
            return close + 1, close + 1
        if opened is not None and ("=" not in flat[:opened] or "operator" in words):
            # A constructor's members may be set in braces: the function goes on behind them.
            while close + 1 < len(self.tokens) and self.tokens[close + 1].text in (",", "{"):
                close = self.match.get(close + 1, close + 1)
                if self.tokens[close].text == ",":
                    close = self.match.get(self._next_brace(close), close)
            owner = Owner(header, header[0].line, self.tokens[close].line)
            self.owner[head:close + 1] = [owner] * (close + 1 - head)
            return close + 1, close + 1
        return close + 1, head  # a value in braces: its declaration ends with the semicolon

    def _next_brace(self, i):
        while i < len(self.tokens) and self.tokens[i].text != "{":
            i += 1
        return i

    def _flat(self, first, end):
        """Texts of the tokens that stand in no bracket of this stretch."""
        texts, i = [], first
        while i < end:
            texts.append(self.tokens[i].text)
            opens = self.tokens[i].kind == "mark" and self.tokens[i].text in PAIRS
            i = self.match.get(i, i) + 1 if opens else i + 1
        return texts

    def _mark(self, head, end, hidden):
        words = {token.text for token in self.tokens[head:end]}
        private = hidden or ("extern" not in words and bool(words & {"static", "constexpr"}))
        self.private[head:end] = [private] * (end - head)

    def _forbid(self):
        lines, self.forbidden = set(), set()
        for i, token in enumerate(self.tokens):
            following = self.tokens[i + 1].text if i + 1 < len(self.tokens) else ""
            if token.kind == "word" and token.text.startswith("LOG_") and following == "(":
                lines.update(range(token.line, self.tokens[self.match.get(i + 1, i)].line + 1))
            elif token.text in ("static_assert", "using", "namespace", "template", "__attribute__"):
                self.forbidden.update(range(i, self._end_of(i, token.text)))
        self.forbidden.update(i for i, token in enumerate(self.tokens)
                              if token.kind in ("directive", "string") or token.line in lines)

    def _end_of(self, i, word):
        """Behind what such a word begins."""
        if self.tokens[i].kind == "directive":
            return i + 1
        if word in ("static_assert", "__attribute__"):
            return self.match.get(i + 1, i + 1) + 1
        depth = 0
        while i < len(self.tokens):
            text = self.tokens[i].text
            depth += {"<": 1, ">": -1, ">>": -2}.get(text, 0)
            if text in (";", "{") or (word == "template" and depth <= 0 and text in (">", ">>")):
                break
            i += 1
        return i + 1


# --- the faults that it could have -----------------------------------------------------------------------------------

def faults_of(name, text):
    """Every fault that can be planted in a source, in the order of the file."""
    source = Source(name, text)
    faults = []
    for i, token in enumerate(source.tokens):
        if i not in source.forbidden:
            for kind, start, end, after in changes_at(source, i):
                faults.append(Fault(name, token.line, kind, start, end, after))
    return faults


def changes_at(source, i):
    for changes in (turned, number, truth, negated, unnegated, chosen, returned, taken_out):
        yield from changes(source, i)


def spaced(source, token):
    """An operator between two values: the formatter puts blanks on both of its sides."""
    return source.text[token.start - 1].isspace() and source.text[token.end:token.end + 1].isspace()


def turned(source, i):
    token = source.tokens[i]
    if token.kind != "mark" or (i and source.tokens[i - 1].text == "operator"):
        return
    if token.text in TURNED and spaced(source, token):
        for other in TURNED[token.text]:
            yield "a comparison turned", token.start, token.end, other
    elif token.text in SWAPPED and spaced(source, token):
        yield "an operator changed", token.start, token.end, SWAPPED[token.text]
    elif token.text in STEPS:
        yield "a step turned", token.start, token.end, STEPS[token.text]


def number(source, i):
    token = source.tokens[i]
    if token.kind != "number":
        return
    digits, suffix = re.fullmatch(r"(0[xX][\da-fA-F']+|[\d'.]+(?:[eE][+-]?\d+)?)([uUlLfF]*)", token.text).groups()
    digits = digits.replace("'", "")
    for after in {one_off(digits, step): step for step in (1, -1)}:
        yield "a constant changed", token.start, token.end, after + suffix


def one_off(digits, step):
    if digits[:2] in ("0x", "0X"):
        return hex(abs(int(digits, 16) + step))
    if any(mark in digits for mark in ".eE"):
        return repr(float(digits) + step)
    octal = len(digits) > 1 and digits[0] == "0"
    value = abs(int(digits, 8 if octal else 10) + step)
    return f"0{value:o}" if octal else str(value)


def truth(source, i):
    token = source.tokens[i]
    other = {"true": "false", "false": "true"}.get(token.text)
    if other and token.kind == "word":
        yield "a constant changed", token.start, token.end, other


def negated(source, i):
    if source.tokens[i].text not in ("if", "while") or source.tokens[i + 1].text != "(":
        return
    first, end = i + 2, source.match[i + 1]
    flat = source._flat(first, end)
    if ";" in flat:
        while source.tokens[first - 1].text != ";" or source.around[first - 1] != i + 1:
            first += 1
    if "=" not in source._flat(first, end):
        yield from negation(source, first, end)


def negation(source, first, end):
    start, stop = source.tokens[first].start, source.tokens[end - 1].end
    yield "a condition negated", start, stop, "!(" + source.text[start:stop] + ")"


def unnegated(source, i):
    token = source.tokens[i]
    if token.text == "!" and token.kind == "mark":
        yield "a condition negated", token.start, token.end, ""


def chosen(source, i):
    """The condition before a question mark."""
    if source.tokens[i].text != "?" or source.tokens[i].kind != "mark":
        return
    first = i
    while first > 0:
        before = source.tokens[first - 1]
        if before.text in ("return", ",", ";", "?", ":", "}") or before.text in ASSIGNS or before.text in PAIRS:
            break
        closes = before.kind == "mark" and before.text in PAIRS.values()
        first = source.match[first - 1] if closes else first - 1
    if first < i:
        yield from negation(source, first, i)


def returned(source, i):
    if source.tokens[i].text != "return" or not source.owner[i]:
        return
    end = i + 1
    while source.tokens[end].text != ";":
        opens = source.tokens[end].kind == "mark" and source.tokens[end].text in PAIRS
        end = source.match[end] + 1 if opens else end + 1
    kind = source.owner[i].returns()
    if end == i + 1 or not kind:
        return
    start, stop = source.tokens[i + 1].start, source.tokens[end - 1].end
    value = source.text[start:stop]
    after = {"bool": f"!({value})", "number": f"({value}) + 1", "pointer": "nullptr", "other": "{}"}[kind]
    if value != after:
        yield "a return value changed", start, stop, after


def taken_out(source, i):
    if not begins_statement(source, i):
        return
    flat, end = [], i
    while end < len(source.tokens) and source.tokens[end].text != ";":
        token = source.tokens[end]
        if token.kind == "mark" and token.text in PAIRS.values():
            return
        flat.append(end)
        end = source.match[end] + 1 if token.kind == "mark" and token.text in PAIRS else end + 1
    texts = [source.tokens[j].text for j in flat]
    if end == len(source.tokens) or declares(source, flat):
        return
    start, stop = source.tokens[i].start, source.tokens[end].end
    if ASSIGNS & set(texts) or "++" in texts or "--" in texts:
        yield "an assignment taken out", start, stop, "{}"
    elif texts[-1] == "(":
        yield "a call taken out", start, stop, "{}"


def begins_statement(source, i):
    token, around = source.tokens[i], source.around[i]
    if not source.owner[i] or around < 0 or source.tokens[around].text != "{":
        return False
    if token.text in NO_STATEMENT or not (token.kind == "word" or token.text in ("*", "++", "--")):
        return False
    before = source.tokens[i - 1]
    if before.text == ")":  # of an if, a for, a while
        return source.tokens[source.match[i - 1] - 1].text in ("if", "for", "while", "constexpr")
    return before.text in (";", "{", "}", ":", "else", "do")


def declares(source, flat):
    """Whether a statement's tokens say a type and then a name."""
    for i, j in zip(flat, flat[1:]):
        left, right = source.tokens[i], source.tokens[j]
        if left.text == "(" or left.text in ASSIGNS:
            return False
        named = right.kind == "word"
        if named and (left.kind == "word" or left.text == ">"):
            return True
        if named and i != flat[0] and left.text in ("*", "&", "&&") and not source.text[left.start - 1].isspace():
            return True
    return False


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

# Linked into every program and library: notes each function that is entered in a file as long as the code, as bytes.
RECORDER = r"""
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>
#include <string>
// Each program and library calls its own recorder; the compiler knows these two as visible and minds no attribute.
asm(".hidden __cyg_profile_func_enter\n.hidden __cyg_profile_func_exit");
extern "C" __attribute__((visibility("hidden"))) char __ehdr_start[];
static constexpr unsigned long kSize = 256u << 20;
static char* Notes() {
  const char* folder = getenv("QUIRELLE_FAULTS_NOTES");
  Dl_info self;
  if (!folder || !dladdr(__ehdr_start, &self)) return nullptr;
  const std::string path = std::string(folder) + "/" + basename(self.dli_fname);
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  void* notes = MAP_FAILED;
  if (file >= 0 && ftruncate(file, kSize) == 0) notes = mmap(nullptr, kSize, PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  if (notes == MAP_FAILED) abort();
  return static_cast<char*>(notes);
}
extern "C" void __cyg_profile_func_enter(void* function, void*) {
  static char* const notes = Notes();
  const unsigned long at = static_cast<char*>(function) - __ehdr_start;
  if (notes && at < kSize) notes[at] = 1;
}
extern "C" void __cyg_profile_func_exit(void*, void*) {}
"""
FLAGS = "-O0 -g1 -finstrument-functions -finstrument-functions-exclude-file-list=/usr/"


def files_of(folder):
    """Everything in a tree but what is built and what git keeps."""
    found = []
    for path, folders, names in os.walk(folder):
        if Path(path) == folder:
            folders[:] = [name for name in folders if name not in ("build", ".git")]
            names = [name for name in names if name != ".git"]
        folders[:] = [name for name in folders if name != "__pycache__"]
        found += [str((Path(path) / name).relative_to(folder)) for name in names]
    return sorted(found)


def copy_tree():
    """Only what differs is written, so that only that is built."""
    TREE.mkdir(parents=True, exist_ok=True)
    names = files_of(ROOT)
    for name in set(files_of(TREE)) - set(names):
        (TREE / name).unlink()
    for name in names:
        old, new = TREE / name, ROOT / name
        if old.is_file() and filecmp.cmp(new, old, shallow=False):
            continue
        old.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(new, old, follow_symlinks=False)
        os.utime(old, follow_symlinks=False)  # now: what was built of another text is older
    return names


def fingerprint(names):
    """Of what the map depends on."""
    digest = hashlib.sha256((RECORDER + FLAGS).encode())
    for name in names:
        if not name.startswith("docs/") and not name.endswith((".md", ".py")):
            digest.update(name.encode() + b"\0" + (TREE / name).read_bytes())
    return digest.hexdigest()


def configure():
    BUILD.mkdir(parents=True, exist_ok=True)
    recorder = BUILD / "recorder.o"
    if not recorder.exists():
        subprocess.run(["c++", "-x", "c++", "-O2", "-fPIC", "-c", "-", "-o", recorder], input=RECORDER, text=True,
                       check=True)
    links = [f"-DCMAKE_{kind}_LINKER_FLAGS={recorder}" for kind in ("EXE", "SHARED", "MODULE")]
    if not (BUILD / "build.ninja").exists():
        subprocess.run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache",
                        "-DCMAKE_BUILD_TYPE=", f"-DCMAKE_CXX_FLAGS={FLAGS}", *links],
                       check=True, stdout=subprocess.DEVNULL)


def build():
    """Whether it can be built; what the compiler says is in compiler.log."""
    with open(BROKEN, "w") as log:
        return subprocess.run(["ninja", "-C", BUILD, *TARGETS], stdout=log, stderr=log).returncode == 0


# --- running tests ---------------------------------------------------------------------------------------------------

# How a run of some tests went: `test` is the one that failed, None when none did; `how` is "", "crashed" or "hung".
Outcome = namedtuple("Outcome", "test how passed")


class Run:
    """Runs tests in one process, up to the first that fails or takes longer than its limit."""

    def __init__(self, tests, limits, notes=None):
        self.tests, self.limits, self.notes = tests, limits, notes
        self.test, self.hung, self.stopped, self.passed = "", False, False, []
        self.process = self.watch = None

    def start(self, folder):
        environment = dict(os.environ, TMPDIR=folder)
        if self.notes:
            environment["QUIRELLE_FAULTS_NOTES"] = str(self.notes)
        words = [str(BUILD / "quirelle-tests"), "--gtest_filter=" + ":".join(self.tests), "--gtest_color=no"]
        limit = f'ulimit -c 0; ulimit -v {MEMORY_KIB}; exec "$@"'
        self.process = subprocess.Popen(["sh", "-c", limit, "sh", *words], cwd=BUILD, env=environment, errors="replace",
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                        start_new_session=True)
        if self.stopped:
            self.stop()

    def stop(self):
        """The tests and what they started."""
        self.stopped = True
        if self.process and self.process.returncode is None:
            os.killpg(self.process.pid, signal.SIGKILL)

    def _hang(self):
        self.hung = True
        self.stop()

    def _limit(self, seconds):
        if self.watch:
            self.watch.cancel()
        self.watch = threading.Timer(seconds, self._hang)
        self.watch.daemon = True
        self.watch.start()

    def outcome(self):
        with tempfile.TemporaryDirectory(prefix="quirelle-faults-", ignore_cleanup_errors=True) as folder:
            self.start(folder)
            self._limit(60)
            failed = self._read()
            self.watch.cancel()
            if failed:
                self.stop()
            # As long as it is not waited for, its number stands for what it left behind, and for nothing else.
            os.waitid(os.P_PID, self.process.pid, os.WEXITED | os.WNOWAIT)
            self.stop()
            status = self.process.wait()
        if self.hung:
            return Outcome(self.test, "hung", self.passed)
        if failed:
            return Outcome(failed, "", self.passed)
        return Outcome(self.test, "crashed", self.passed) if status else Outcome(None, "", self.passed)

    def _read(self):
        """The name of the first test that fails, or None."""
        with self.process.stdout as lines:
            for line in lines:
                said = re.match(r"\[( RUN      |       OK |  FAILED  )\] ([^ ,\n]+\.[^ ,\n]+)", line)
                if not said:
                    continue
                word, self.test = said.group(1).strip(), said.group(2)
                if word == "FAILED":
                    return self.test
                if word == "OK":
                    self.passed.append(self.test)
                self._limit(self.limits.get(self.test, 60))
        return None


def list_tests():
    listed = subprocess.run([BUILD / "quirelle-tests", "--gtest_list_tests"], check=True, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    tests, suite = [], ""
    for line in listed.splitlines():
        name = line.split("#")[0].strip()
        if not line.startswith(" "):
            suite = name
        elif "DISABLED_" not in suite + name:
            tests.append(suite + name)
    return tests


# --- the map: which functions each test enters -----------------------------------------------------------------------

def noted(path):
    """Offsets of the functions that were entered."""
    offsets = []
    with open(path, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as notes:
        end = 0
        while True:
            try:
                start = os.lseek(file.fileno(), end, os.SEEK_DATA)
            except OSError:  # nothing but a hole is left
                return offsets
            end = os.lseek(file.fileno(), start, os.SEEK_HOLE)
            at = notes.find(b"\1", start, end)
            while at >= 0:
                offsets.append(at)
                at = notes.find(b"\1", at + 1, end)


def places(module, offsets, sources):
    """Offsets of a program or library as (file, line) of our sources."""
    binary = next(path for path in BUILD.rglob(module) if path.is_file())
    asked = "\n".join(map(hex, offsets))
    asking = subprocess.run(["addr2line", "-e", binary], input=asked, text=True, check=True, stdout=subprocess.PIPE)
    found = {}
    for offset, line in zip(offsets, asking.stdout.splitlines()):
        path, at = line.split(" ")[0].rsplit(":", 1)
        name = our_name(os.path.normpath(path), sources)
        if name and at.isdigit():
            found[offset] = (name, int(at))
    return found


def our_name(path, sources):
    parts = path.split("/")
    return next((name for i in range(len(parts)) if (name := "/".join(parts[i:])) in sources), None)


def in_parallel(work, items):
    """`work` on each item, by as many threads as there are processors; an error of one ends them all."""
    waiting, errors = queue.SimpleQueue(), []
    for item in items:
        waiting.put(item)

    def go():
        while not errors:
            try:
                work(waiting.get_nowait())
            except queue.Empty:
                return
            except Exception as error:
                errors.append(error)
    threads = [threading.Thread(target=go, daemon=True) for _ in range(WORKERS)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if errors:
        raise errors[0]


def learn(sources, key):
    """Runs each test by itself on the healthy tree."""
    print("Learning which functions each test enters", file=sys.stderr)
    tests, entered = {}, defaultdict(dict)

    def run(test):
        with tempfile.TemporaryDirectory(prefix="quirelle-faults-") as folder:
            begin = time.monotonic()
            healthy = Run([test], {test: 600}, folder).outcome() == Outcome(None, "", [test])
            tests[test] = {"seconds": time.monotonic() - begin, "healthy": healthy}
            for path in Path(folder).iterdir():
                entered[path.name][test] = noted(path)
    in_parallel(run, list_tests())
    functions = defaultdict(lambda: defaultdict(set))
    for module, by_test in entered.items():
        found = places(module, sorted(set().union(*by_test.values())), sources)
        for test, offsets in by_test.items():
            for name, line in (found[offset] for offset in offsets if offset in found):
                functions[name][line].add(test)
    learned = {"key": key, "tests": dict(sorted(tests.items())),
               "functions": {name: {line: sorted(tests) for line, tests in lines.items()}
                             for name, lines in functions.items()}}
    MAP.write_text(json.dumps(learned))
    return learned


class Tests:
    """Which tests to try a fault on, in which order."""

    def __init__(self, learned):
        self.seconds = {name: test["seconds"] for name, test in learned["tests"].items() if test["healthy"]}
        self.ill = [name for name, test in learned["tests"].items() if not test["healthy"]]
        self.limits = {name: 5 * seconds + 20 for name, seconds in self.seconds.items()}
        self.functions = {name: {int(line): set(tests) & set(self.seconds) for line, tests in lines.items()}
                          for name, lines in learned["functions"].items()}

    def of(self, fault, source):
        """The tests that a fault could be noticed by."""
        i = next(i for i, token in enumerate(source.tokens) if token.end > fault.start)
        lines, owner = self.functions.get(fault.file, {}), source.owner[i]
        whole = set().union(*lines.values())
        if owner:
            entered = set().union(*(tests for line, tests in lines.items() if owner.first <= line <= owner.last))
            # What the compiler works out itself is seen by whoever uses the file.
            return entered or (whole if owner.constant else set())
        return whole if source.private[i] and whole else set(self.seconds)

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


def names_in(text):
    """TvRating and ViewTvRatingWindow have "rating" in common."""
    common = {"view", "window", "test", "util", "table", "data", "base", "content", "desktop"}
    return {word.lower() for word in re.findall(r"[A-Z]?[a-z]{3,}|[A-Z]{3,}(?![a-z])", text)} - common


# --- planting --------------------------------------------------------------------------------------------------------

class Hunt:
    """Runs batches of tests on a planted fault until one of them notices it."""

    def __init__(self, tests):
        self.tests, self.noticed, self.running, self.lock = tests, None, set(), threading.Lock()
        self.doubtful = []

    def over(self, batches):
        in_parallel(self._try, batches)
        return self.noticed

    def _try(self, batch):
        while batch and not self.noticed:
            outcome = self._run(batch)
            if not outcome or outcome.test is None:
                return
            if outcome.how == "hung" or self._fails_again(outcome.test):
                self._end(outcome)
                return
            self.doubtful.append(outcome.test)
            batch = [test for test in batch if test not in outcome.passed and test != outcome.test]

    def _fails_again(self, test):
        """A test that fails only after others, or only now and then, says nothing of the fault for certain; one without
        a name failed before any began."""
        again = test and self._run([test])
        return test == "" or (again and again.test is not None)

    def _run(self, batch):
        run = Run(batch, self.tests.limits)
        with self.lock:
            if self.noticed:
                return None
            self.running.add(run)
        outcome = run.outcome()
        with self.lock:
            self.running.discard(run)
            return None if self.noticed else outcome

    def _end(self, outcome):
        with self.lock:
            if self.noticed:
                return
            self.noticed = (outcome.test or "the start of the tests") + (f" ({outcome.how})" if outcome.how else "")
            for run in self.running:
                run.stop()


class Planter:
    """Puts one fault at a time into the copy."""

    def __init__(self, sources, tests):
        self.sources, self.tests, self.refused, self.planted = sources, tests, 0, None

    def heal(self):
        if self.planted:
            (TREE / self.planted).write_text(self.sources[self.planted])
            self.planted = None

    def plant(self, fault):
        """Whether the compiler takes it."""
        self.heal()
        (TREE / fault.file).write_text(changed(self.sources[fault.file], fault))
        self.planted = fault.file
        return build()

    def first_taken(self, faults):
        for fault in faults:
            if self.plant(fault):
                return fault
            self.refused += 1
        sys.exit(f"The compiler refused {len(faults)} faults in a row; see {BROKEN}")

    def verdict(self, fault):
        """By which test it is noticed, or None; and why it is not."""
        tests = self.tests.of(fault, Source(fault.file, self.sources[fault.file]))
        hunt = Hunt(self.tests)
        noticed = hunt.over(self.tests.batches(fault, tests))
        why = f"by none of {len(tests)} tests" if tests else "no test comes here"
        if hunt.doubtful:
            why += ", though once, not alone, by " + ", ".join(hunt.doubtful)
        return noticed, why


def changed(text, fault):
    return text[:fault.start] + fault.after + text[fault.end:]


def lines_around(text, start, end):
    """The whole lines from `start` to `end`, as one."""
    first = text.rfind("\n", 0, start) + 1
    last = text.find("\n", end)
    return " ".join(text[first:last if last >= 0 else len(text)].split())


def describe(number, fault, text):
    before = lines_around(text, fault.start, fault.end)
    after = lines_around(changed(text, fault), fault.start, fault.start + len(fault.after))
    return f"{number:3} {fault.file}:{fault.line}: {fault.kind}\n    - {before}\n    + {after}"


def prepare(names):
    """The healthy tree, built, and its map."""
    configure()
    if not build():
        sys.exit(f"The sources as they are cannot be built; see {BROKEN}")
    key = fingerprint(names)
    learned = json.loads(MAP.read_text()) if MAP.exists() else {}
    sources = {name: (TREE / name).read_text() for name in names
               if name.endswith(".cpp") and name.startswith(tuple(folder + "/" for folder in FOLDERS))}
    if learned.get("key") != key:
        learned = learn(set(sources), key)
    return sources, Tests(learned)


def hunt_all(seed, wanted):
    HOME.mkdir(parents=True, exist_ok=True)
    with open(HOME / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        sources, tests = prepare(copy_tree())
        if tests.ill:
            print(f"Left out, as they fail by themselves: {', '.join(tests.ill)}")
        drawn = draw(sources, seed)
        if wanted[-1] * SPARE > len(drawn):
            sys.exit(f"There are {len(drawn) // SPARE} faults to plant, not {wanted[-1]}")
        planter = Planter(sources, tests)
        try:
            report(planter, drawn, wanted)
        finally:
            planter.heal()


def report(planter, drawn, wanted):
    counts, missed = Counter(), []
    for number in wanted:
        begin = time.monotonic()
        fault = planter.first_taken(drawn[(number - 1) * SPARE:number * SPARE])
        said = describe(number, fault, planter.sources[fault.file])
        print(said, flush=True)
        noticed, why = planter.verdict(fault)
        counts[bool(noticed)] += 1
        print(f"    {'noticed by ' + noticed if noticed else 'NOT NOTICED: ' + why}, "
              f"{time.monotonic() - begin:.0f} s", flush=True)
        if not noticed:
            missed.append(f"{said}\n    {why}")
    if missed:
        print("Not noticed:", *missed, sep="\n")
    print(f"{counts[True]} of {len(wanted)} noticed ({100 * counts[True] / len(wanted):.0f} %); "
          f"{planter.refused} more refused by the compiler")


# --- a check of this file itself -------------------------------------------------------------------------------------

SAMPLE = r"""
#define TWICE(x) ((x) + 2)
namespace {
constexpr int kFirst[] = {1, 0x0F};
const char* Name() { return "a < b"; }
}  // namespace
extern const int kShared = 7;
template <int N = 3>
bool View::Close(std::vector<int>& all, int* out) : m_a{1}, m_b(2) {
  static_assert(sizeof(int) == 4);
  const std::vector<int> copy(all);
  if (int n = Count(); !all.empty() && n > 0) LOG_DEBUG("n[%d]", n + 1);
  if (auto* x = Find()) Use(x);
  for (const int n : all) Show(n);
  *out = all.size() < 2 ? 4 : 5;  // not 6
  return Done(out);
}
int* Other() { return &g_n; }
"""


def self_check():
    faults = faults_of("sample.cpp", SAMPLE)
    found = {(fault.line, SAMPLE[fault.start:fault.end], fault.after) for fault in faults}
    lines = {fault.line for fault in faults}
    wanted = {(4, "1", "2"), (4, "0x0F", "0x10"), (5, '"a < b"', "nullptr"), (7, "7", "6"), (9, "2", "3"),
              (13, "Use(x);", "{}"), (14, "Show(n);", "{}"), (15, "<", "<="), (15, "<", ">"),
              (15, "all.size() < 2", "!(all.size() < 2)"), (15, "*out = all.size() < 2 ? 4 : 5;", "{}"),
              (16, "Done(out)", "!(Done(out))"), (18, "&g_n", "nullptr")}
    assert wanted <= found, wanted - found
    assert not lines & {2, 3, 6, 8, 10, 11, 12}, lines
    assert not any("6" == SAMPLE[fault.start:fault.end] for fault in faults), "a comment"
    source = Source("sample.cpp", SAMPLE)
    owners = {token.line: source.owner[i] for i, token in enumerate(source.tokens)}
    assert not owners[4] and owners[9] is owners[16] and owners[18] is not owners[16]
    private = {token.text: source.private[i] for i, token in enumerate(source.tokens)}
    assert private["kFirst"] and not private["kShared"]
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
