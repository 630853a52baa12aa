"""A fresh Debian 12 in a folder, as small as it gets, and commands in it. Whoever uses it is root in a mount and process
namespace of its own, so that what was mounted and started is gone with it."""

import os
import shutil
import subprocess
from pathlib import Path

SUITES = ("bookworm", "bookworm-updates", "bookworm-security")
# What root and the user find in it: a desktop without a session bus, three shells, and what looks at windows and presses keys.
DESKTOP = ["xvfb", "openbox", "x11-utils", "xdotool", "dbus-daemon", "dbus-bin", "man-db", "bash-completion", "zsh",
           "fish"]
# In seconds; apt may have to fetch much from afar.
LONGEST_INSTALLATION = 600
LONGEST_COMMAND = 30
USER = "ann"
USER_ID = 1000
ARCHIVES = "/var/cache/apt/archives"
CHROOT = "/usr/sbin/chroot"
PATH = "/usr/local/bin:/usr/bin:/bin"


def sources():
    """Where the machine has its own Debian from, as lines of a sources.list."""
    lines = subprocess.run(["apt-get", "indextargets", "--format", "$(SITE) $(RELEASE) $(COMPONENT)", "Created-By: Packages"],
                           check=True, capture_output=True, text=True).stdout.splitlines()
    found = [line.split() for line in dict.fromkeys(lines)]
    return [f"deb {site} {suite} main" for site, suite, component in found if suite in SUITES and component == "main"]


class SmallDebian:
    def __init__(self, folder):
        self.root = folder / "root"
        self._downloads = folder / "downloads"
        self._running = []

    def make(self):
        if self.root.exists():
            shutil.rmtree(self.root)
        self._downloads.mkdir(parents=True, exist_ok=True)
        # Kept from one run to the next, packages are not fetched again.
        subprocess.run(["mmdebstrap", "--quiet", "--mode=root", "--variant=minbase", f"--include={','.join(DESKTOP)}",
                        "--skip=essential/unlink,cleanup/apt", "--dpkgopt=force-unsafe-io",
                        f'--setup-hook=mkdir -p "$1"{ARCHIVES} && mount --bind {self._downloads} "$1"{ARCHIVES}',
                        f'--customize-hook=umount "$1"{ARCHIVES}', SUITES[0], self.root, "-"],
                       input="\n".join(sources()), text=True, check=True)
        shutil.copy("/etc/resolv.conf", self.root / "etc/resolv.conf")
        subprocess.run(["mount", "-t", "proc", "proc", self.root / "proc"], check=True)
        subprocess.run(["mount", "--bind", self._downloads, self.path(ARCHIVES)], check=True)
        self.run("useradd", "--create-home", "--uid", str(USER_ID), USER)
        runtime = self.root / "run/user" / str(USER_ID)
        runtime.mkdir(parents=True, mode=0o700)
        os.chown(runtime, USER_ID, USER_ID)

    def path(self, inside):
        return self.root / str(inside).lstrip("/")

    def run(self, *command, check=True):
        """As root."""
        environment = {"PATH": f"{PATH}:/usr/sbin:/sbin", "DEBIAN_FRONTEND": "noninteractive", "LC_ALL": "C.UTF-8"}
        return self._run([CHROOT, self.root, *command], environment, check, LONGEST_INSTALLATION)

    def apt(self, *command):
        return self.run("apt-get", "--quiet", "--yes", "--option=APT::Sandbox::User=root", *command)

    def as_user(self, *command, check=True, **variables):
        return self._run(self._user_command(command), self._user_environment(variables), check, LONGEST_COMMAND)

    def start(self, *command, **variables):
        """A program of the user that goes on running."""
        environment = self._user_environment(variables)
        program = subprocess.Popen(self._user_command(command), env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self._running.append(program)
        return program

    def end(self, keep):
        """keep: leaves the files there to be looked at."""
        for program in self._running:
            program.terminate()
        for program in self._running:
            program.wait(10)
        for folder in ("/proc", ARCHIVES):
            subprocess.run(["umount", self.path(folder)], check=True)
        if not keep:
            shutil.rmtree(self.root)
        # Whoever became root by sudo can remove the build folder.
        owner = self._downloads.parent.stat()
        for kept in (self._downloads, *self._downloads.rglob("*")):
            os.chown(kept, owner.st_uid, owner.st_gid)

    def files(self, apart_from):
        """Whatever has a name in it, but for what lies below these folders."""
        left_out = {self.path(each) for each in apart_from}
        found = set()
        for folder, folders, names in os.walk(self.root):
            here = Path(folder)
            folders[:] = [name for name in folders if here / name not in left_out]
            found.update("/" + str((here / name).relative_to(self.root)) for name in folders + names
                         if here / name not in left_out)
        return found

    def files_of_user(self):
        return [file for file in self.path(f"/home/{USER}").rglob("*") if file.is_file()]

    @staticmethod
    def _run(command, environment, check, longest):
        done = subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=longest)
        if check and done.returncode != 0:
            raise AssertionError(f"{' '.join(map(str, command))}: status {done.returncode}: {(done.stderr or done.stdout).strip()}")
        return done

    def _user_command(self, command):
        return [CHROOT, f"--userspec={USER}:{USER}", self.root, "env", f"--chdir=/home/{USER}", *command]

    @staticmethod
    def _user_environment(variables):
        return {"PATH": PATH, "HOME": f"/home/{USER}", "USER": USER, "LC_ALL": "C.UTF-8",
                "XDG_RUNTIME_DIR": f"/run/user/{USER_ID}", **variables}
