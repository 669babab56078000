# SPDX-License-Identifier: LGPL-2.1-or-later
"""Drives the real shells: what bash, zsh and fish offer at the end of a line that a person has typed so far."""
import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import tempfile
import time

PATIENCE = 30.0  # seconds until a shell that says nothing is given up


class ShellFailure(Exception):
    pass


def need(program):
    if not shutil.which(program):
        raise ShellFailure(f"{program} is not installed; scripts/bootstrap test installs it")
    return program


def run(words, **options):
    done = subprocess.run(words, text=True, capture_output=True, timeout=PATIENCE, check=False, **options)
    if done.stderr.strip():
        raise ShellFailure(f"{words[0]} says: {done.stderr.strip()}")
    return done.stdout


class Bash:
    """Readline's way: words split at COMP_WORDBREAKS, the function that `complete -p` names, COMPREPLY."""

    def __init__(self, script, environment):
        self.script, self.environment = script, environment
        need("bash")

    def offers(self, line):
        # Readline's word breaks that occur in these lines are blanks and the equals sign.
        words = re.findall(r"=|[^\s=]+", line)
        if line.endswith((" ", "=")):
            words.append("")
        driver = r'''
            source "$1"; shift
            COMP_LINE=$1; shift
            COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMP_POINT=${#COMP_LINE}
            [[ $(complete -p zrsupply) =~ -F\ ([^ ]+) ]] || { echo "no function is registered" >&2; exit 1; }
            "${BASH_REMATCH[1]}" zrsupply "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD-1]}"
            ((${#COMPREPLY[@]})) && printf '%s\n' "${COMPREPLY[@]}"
            exit 0'''
        return run(["bash", "--norc", "-u", "-c", driver, "bash", self.script, line, *words],
                   env=self.environment).splitlines()


class Fish:
    def __init__(self, script, environment):
        self.script, self.home = script, tempfile.TemporaryDirectory()
        self.environment = {**environment, "HOME": self.home.name, "XDG_CONFIG_HOME": self.home.name,
                            "XDG_DATA_HOME": self.home.name, "TERM": "dumb"}
        need("fish")

    def offers(self, line):
        said = run(["fish", "--no-config", "-c", 'source $argv[1]; complete -C $argv[2]', self.script, line],
                   env=self.environment)
        # fish puts the option in front of a value behind the equals sign.
        return [row.split("\t")[0].split("=")[-1] if "=" in line.split(" ")[-1] else row.split("\t")[0]
                for row in said.splitlines()]


class Zsh:
    """An interactive zsh on a terminal of its own; compadd tells what it is given, once the line is completed."""

    SETUP = r'''
PS1= PS2= RPS1=
setopt no_beep
fpath=(%(folder)s $fpath)
autoload -Uz compinit && compinit -D -u
zstyle ':completion:*' menu no
zstyle ':completion:*' format ''
compadd() {
    local -a given=("$@")
    # A call that fills an array adds nothing to the line.
    if (( ${given[(I)-[OAD]]} )); then builtin compadd "$@"; return $?; fi
    local -a offered
    builtin compadd -A offered "$@"
    print -rl -- $offered >>%(out)s
    builtin compadd "$@"
}
capture() {
    : >%(out)s
    zle complete-word
    BUFFER=
    print done >%(out)s.done
}
zle -N capture
bindkey '^X^G' capture
bindkey '^X^U' kill-whole-line
print ready >%(out)s.done
'''

    def __init__(self, script, environment):
        need("zsh")
        self.folder = tempfile.TemporaryDirectory()
        self.out = pathlib.Path(self.folder.name) / "out"
        setup = pathlib.Path(self.folder.name) / "setup"
        setup.write_text(self.SETUP % {"folder": pathlib.Path(script).parent, "out": self.out})
        self.process, self.terminal = None, None
        pid, self.terminal = pty.fork()
        if pid == 0:
            os.execvpe("zsh", ["zsh", "-f", "-i"], {**environment, "TERM": "dumb", "HOME": self.folder.name})
        self.process = pid
        self.said = b""
        self.type(f"source {setup}\n")
        self.wait()

    def type(self, text):
        os.write(self.terminal, text.encode())

    def wait(self):
        done = pathlib.Path(f"{self.out}.done")
        end = time.monotonic() + PATIENCE
        while not done.exists() or not done.read_text():
            if time.monotonic() > end:
                raise ShellFailure(f"zsh does not answer; it said {self.said.decode(errors='replace')}")
            if select.select([self.terminal], [], [], 0.01)[0]:
                self.said += os.read(self.terminal, 65536)
        done.unlink()

    def offers(self, line):
        self.type("\x18\x15" + line + "\x18\x07")
        self.wait()
        return [row for row in self.out.read_text().splitlines() if row]

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.process, 0)


SHELLS = {"bash": Bash, "zsh": Zsh, "fish": Fish}
