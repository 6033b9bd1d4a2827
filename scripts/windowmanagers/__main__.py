"""Tries the program under each window manager, see scripts/window-managers."""
import argparse
import json
import pathlib
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

from . import scenario, sessions

time_limit = 300  # seconds, for one window manager


def parse_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program")
    parser.add_argument("--pictures", type=pathlib.Path)
    parser.add_argument("--at-once", type=int, default=2, help="how many side by side")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--one", action="store_true", help="in this process, with the outcomes as JSON")
    parser.add_argument("names", nargs="*")
    arguments = parser.parse_args()
    known = [desktop.name for desktop in sessions.desktops]
    for name in arguments.names:
        if name not in known:
            parser.error(f"{name} is none of {', '.join(known)}")
    return arguments


def try_here(desktop, arguments):
    picture = arguments.pictures / (desktop.name.replace(" ", "-") + ".png")
    picture.unlink(missing_ok=True)
    session = sessions.Session(desktop)
    try:
        return scenario.Scenario(session, arguments.program, str(picture)).run()
    finally:
        session.end()


def try_apart(desktop, arguments):
    """In a process of its own, whose environment is the session's."""
    command = [sys.executable, "-m", __package__, "--one", "--program", arguments.program, "--pictures",
               arguments.pictures, desktop.name]
    try:
        done = subprocess.run(command, capture_output=True, text=True, timeout=time_limit, check=False)
        return json.loads(done.stdout) if done.returncode == 0 else {"start": done.stderr.strip().split("\n")[-1]}
    except subprocess.TimeoutExpired:
        return {"start": f"not done after {time_limit} s"}


def word_for(outcome, step):
    if outcome.get(step) == "":
        return "yes"
    return "no" if outcome.get(step) or "start" in outcome else "-"


def print_table(outcomes):
    steps = scenario.Scenario.steps
    print("| | " + " | ".join(steps) + " |")
    print("|---|" + "---|" * len(steps))
    for name, outcome in outcomes.items():
        print(f"| {name} | " + " | ".join(word_for(outcome, step) for step in steps) + " |")
    print()
    for name, outcome in outcomes.items():
        for step, seen in outcome.items():
            if seen:
                print(f"{name}, {step}: {seen}")


def main():
    arguments = parse_arguments()
    wanted = [desktop for desktop in sessions.desktops if not arguments.names or desktop.name in arguments.names]
    if arguments.list:
        print("\n".join(desktop.name for desktop in wanted))
        return 0
    arguments.pictures.mkdir(parents=True, exist_ok=True)
    if arguments.one:
        print(json.dumps(try_here(wanted[0], arguments)))
        return 0
    present = [desktop for desktop in wanted if desktop.is_installed()]
    for desktop in wanted:
        if desktop not in present:
            print(f"{desktop.name}: not tried, as not all of {' '.join(desktop.programs())} are installed")
    with ThreadPoolExecutor(arguments.at_once) as pool:
        tried = pool.map(lambda desktop: try_apart(desktop, arguments), present)
        outcomes = {desktop.name: outcome for desktop, outcome in zip(present, tried)}
    print_table(outcomes)
    return 1 if any(any(outcome.values()) for outcome in outcomes.values()) else 0


if __name__ == "__main__":
    sys.exit(main())
