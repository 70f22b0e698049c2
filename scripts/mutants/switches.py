"""Puts both the code and its mutation into a source, with a switch between them: the whole list is then built once."""
import re

HEADER = """#pragma once
// Which mutation is on (MUTANT, its number), and which a test has reached (written into the directory MUTANT_REACHED).
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

inline constexpr int mutants = 4096;
inline std::atomic<bool> mutantReached[mutants];

inline void tellReachedMutants() {
    char path[512];
    std::snprintf(path, sizeof path, "%s/%d", std::getenv("MUTANT_REACHED"), static_cast<int>(getpid()));
    if (std::FILE *file = std::fopen(path, "w")) {
        for (int i = 0; i < mutants; ++i)
            if (mutantReached[i])
                std::fprintf(file, "%d\\n", i);
        std::fclose(file);
    }
}

inline int mutantThatIsOn() {
    if (std::getenv("MUTANT_REACHED"))
        std::atexit(tellReachedMutants);
    char const *const number = std::getenv("MUTANT");
    return number ? std::atoi(number) : -1;
}

inline bool mutant(int number) {
    static int const on = mutantThatIsOn();
    mutantReached[number].store(true, std::memory_order_relaxed);
    return number == on;
}
"""
CONTROL = re.compile(r"\s*(?:\} *)?(?:else\s+)?(?:if(?: constexpr)?|for|while|switch)\s*\(|\s*else\b|\s*do\b")
NOT_SWITCHED = re.compile(r"\s*(case|default|public|private|protected|static|template|using|enum|goto|break|\[\[|#)\b")
DECLARATION = re.compile(r"\s*(?:constexpr\s+)?[A-Za-z_][\w:<>, ]*[\w>][ *&]+(?!const\b)[A-Za-z_]\w*\s*(=|\(|\{|\[)")
OPENING, CLOSING = "([{", ")]}"


def blanked(text):
    """The same text without what stands in comments and literals, so that brackets and semicolons count."""
    blank = lambda match: re.sub(r"[^\n]", " ", match[0])
    return re.sub(r'R"\((?:.|\n)*?\)"|//[^\n]*|/\*(?:.|\n)*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'', blank, text)


def closing_of(text, place):
    """Where the bracket that stands at a place is closed."""
    depth = 0
    for at in range(place, len(text)):
        depth += text[at] in OPENING
        depth -= text[at] in CLOSING
        if depth == 0:
            return at
    return len(text)


def statement_around(text, place):
    """The bounds of the statement, or of the control head's part, that a place is in: (first, last, is a condition)."""
    at, head = place, None
    while True:
        at -= 1
        if at < 0:
            return None
        if text[at] in CLOSING:
            if text[at] == "}" and re.match(r"\s*[\w(*&!~+-]", text[at + 1:]) and not re.match(r"\s*(\?|==|&&|\|\|)", text[at + 1:]):
                break
            depth = 1
            while depth and at > 0:
                at -= 1
                depth += text[at] in CLOSING
                depth -= text[at] in OPENING
        elif text[at] in "([":
            if text[at] == "(" and re.search(r"\b(if|while|for|switch)\s*$", text[:at]):
                head = at
                break
        elif text[at] in ";{":
            if text[at] == ";":
                owner = unclosed(text, at)
                if owner is not None and text[owner] == "(":
                    head = owner
            break
    first = at + 1
    if head is not None:
        last = closing_of(text, head)
        inner = first
        for at in range(first, last):
            if text[at] == ";" and unclosed(text, at) == head:
                if at < place:
                    inner = at + 1
                else:
                    last = at
                    break
        return inner, last, True
    at = first
    while at < len(text) and text[at] != ";":
        if text[at] in OPENING:
            if text[at] == "{" and not re.search(r"[\w>,(=]\s*$|[\])]\s*(mutable|const|noexcept|-> [\w:]+)?\s*$", text[first:at]):
                return None
            at = closing_of(text, at)
        elif text[at] in CLOSING:
            return None
        at += 1
    while head := CONTROL.match(text, first, at):
        end = closing_of(text, head.end() - 1) + 1 if head[0].rstrip().endswith("(") else head.end()
        if end > place:
            return None
        first = end
    return first, at + 1, False


def unclosed(text, place):
    """The bracket that is open at a place; None outside of all."""
    depth = 0
    for at in range(place - 1, -1, -1):
        depth += text[at] in CLOSING
        if text[at] in OPENING:
            if depth == 0:
                return at
            depth -= 1
    return None


def switched(number, code, mutated, is_condition):
    """The piece of code with its mutation beside it, or None where that cannot be said in the language."""
    lead = re.match(r"(?:\s|//[^\n]*\n)*", code)[0]
    code, mutated = code[len(lead):].strip(), mutated[len(lead):].strip()
    if is_condition:
        if DECLARATION.match(code) or not code:
            parts = re.match(r"([^=]*[^=!<>])=([^=].*)$", code, re.S)
            other = re.match(r"([^=]*[^=!<>])=([^=].*)$", mutated, re.S)
            if not parts or not other or parts[1] != other[1]:
                return None
            return f"{lead}{parts[1]}= mutant({number}) ? ({other[2]}) : ({parts[2]})"
        return f"{lead}mutant({number}) ? ({mutated}) : ({code})"
    if NOT_SWITCHED.match(code):
        return None
    if lock := re.match(r"std::lock_guard(?:<[^>]*>)?(?: const)? (\w+)\((\w+)\);$", code):
        return f"{lead}std::unique_lock {lock[1]}({lock[2]}, std::defer_lock); if (!mutant({number})) {lock[1]}.lock();"
    if lock := re.match(r"(QMutexLocker(?: const)? \w+)\((&\w+)\);$", code):
        return f"{lead}{lock[1]}(mutant({number}) ? nullptr : {lock[2]});"
    if code.startswith("return") or not DECLARATION.match(code):
        return f"{lead}{{ if (mutant({number})) {{ {mutated} }} else {{ {code} }} }}"
    parts = re.match(r"([^=({]*?[^=!<>({])=(?!=)(.*);$", code, re.S)
    other = re.match(r"([^=({]*?[^=!<>({])=(?!=)(.*);$", mutated, re.S)
    if not parts or not other or parts[1] != other[1] or parts[2].strip().startswith("{"):
        return None
    declared = parts[1].replace("constexpr ", "const ") if "*" not in parts[1] else parts[1]
    return f"{lead}{declared}= mutant({number}) ? ({other[2].strip()}) : ({parts[2].strip()});"


def line_bounds(text, line, nth):
    """Where the nth line that reads so begins and ends, or None."""
    begin = 0
    for one in text.split("\n"):
        if one == line:
            nth -= 1
            if nth == 0:
                return begin, begin + len(line)
        begin += len(one) + 1
    return None


def place_switch(text, mutation, number, header):
    """The text of a file with one more switch in it: None where the mutation has to be built on its own."""
    if mutation["file"].endswith(".h"):
        return None
    bounds = line_bounds(text, mutation["line"], mutation["nth"])
    if not bounds:
        return None
    line, new = mutation["line"], mutation["new"]
    same = next((i for i in range(min(len(line), len(new))) if line[i] != new[i]), min(len(line), len(new)))
    if not new.strip(" ;"):
        same = len(line) - len(line.lstrip())
    blank = blanked(text)
    bounds_of_code = statement_around(blank, bounds[0] + same + (1 if not new.strip(" ;") else 0))
    if not bounds_of_code:
        return None
    first, last, is_condition = bounds_of_code
    if "mutant(" in text[first:last] or first > bounds[0] + same:
        return None
    mutated = (text[:bounds[0]] + new + text[bounds[1]:])[first:last + len(new) - len(line)]
    both = switched(number, text[first:last], mutated, is_condition)
    if both is None:
        return None
    included = f'#include "{header}"\n'
    return ("" if included in text else included) + text[:first] + both + text[last:]
