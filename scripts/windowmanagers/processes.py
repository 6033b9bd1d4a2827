"""Programs that a run starts, and waiting for what they do."""
import ctypes
import os
import shutil
import signal
import subprocess
import time

set_parent_death_signal = 1  # prctl(2): PR_SET_PDEATHSIG


def end_with_parent():
    ctypes.CDLL(None).prctl(set_parent_death_signal, signal.SIGKILL)


def wait_for(condition, seconds=10.0):
    """The first true value of `condition`, or its last value when there was none in that time."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value or time.monotonic() > end:
            return value
        time.sleep(0.02)


def output_of(*command):
    """What the command prints, whatever its exit status is."""
    done = subprocess.run(command, capture_output=True, text=True, timeout=60, check=False)
    return done.stdout.strip()


def is_installed(*programs):
    return all(shutil.which(program) for program in programs)


class Processes:
    """What was started here; it ends in the opposite order, and with this process in any case."""

    def __init__(self, folder):
        self.folder = folder
        self.started = []

    def start(self, name, *command, keep_descriptors=()):
        with open(os.path.join(self.folder, name + ".log"), "ab") as log:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                       pass_fds=keep_descriptors, preexec_fn=end_with_parent)
        self.started.append(process)
        return process

    def log(self, name):
        with open(os.path.join(self.folder, name + ".log"), encoding="utf-8", errors="replace") as file:
            return file.read()

    def end_all(self):
        for process in reversed(self.started):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self.started.clear()
