"""What apt and dpkg do with the package, and what lies where."""

import stat

COMPLETIONS = {
    "bash": ["bash", "--norc", "-c", "source /usr/share/bash-completion/bash_completion; _completion_loader tilwin; "
             "COMP_WORDS=(tilwin la); COMP_CWORD=1; _tilwin; printf '%s\\n' \"${COMPREPLY[@]}\""],
    "zsh": ["zsh", "-f", "-c", "autoload -Uz compinit; compinit -D; functions[compadd]='print -rl -- ${(M)${(P)2}:#la*}'; "
            "words=(tilwin la); CURRENT=2; autoload +X $_comps[tilwin]; $_comps[tilwin]"],
    "fish": ["fish", "-c", "complete --do-complete 'tilwin la'"],
}


class Installation:
    def __init__(self, debian, old, new):
        self.debian = debian
        self.old = old
        self.new = new
        self._files = set()

    def first(self):
        return [("apt installs the package with what it depends on and nothing it recommends", self.install_old),
                ("every file of it belongs to root and can be written by nobody else", self.own_files),
                ("every library that the programs want is there", self.find_libraries),
                ("nothing of it lies in /etc, so nothing starts it at login", self.start_nothing),
                ("man shows the page", self.find_man_page),
                *((f"{shell} loads the completions by itself", lambda shell=shell: self.complete(shell))
                  for shell in COMPLETIONS)]

    def last(self, before, apart_from):
        return [("removing it leaves nothing but the user's own files", self.remove),
                ("purging it and what it needed leaves no file that was not there before",
                 lambda: self.purge(before, apart_from))]

    def version(self):
        return self.debian.run("dpkg-query", "--show", "--showformat=${Version}", "tilwin").stdout

    def install_old(self):
        self.debian.apt("install", "--no-install-recommends", str(self.old))
        assert f"_{self.version()}_" in self.old.name
        self.debian.run("dpkg", "--verify", "tilwin")
        self._files = self._listed()

    def upgrade(self):
        self.debian.apt("install", "--no-install-recommends", str(self.new))
        assert f"_{self.version()}_" in self.new.name
        self.debian.run("dpkg", "--verify", "tilwin")
        self._files |= self._listed()

    def own_files(self):
        assert len(self._files) > 10
        for file in self._files:
            status = self.debian.path(file).lstat()
            assert status.st_uid == status.st_gid == 0, file
            assert stat.S_ISLNK(status.st_mode) or not status.st_mode & 0o022, file

    def find_libraries(self):
        for program in ("/usr/bin/tilwin", "/usr/libexec/tilwin/tilwin"):
            libraries = self.debian.run("ldd", program).stdout.splitlines()
            assert any("libc.so" in library for library in libraries), program
            missing = [library.strip() for library in libraries if "not found" in library]
            assert not missing, missing

    def start_nothing(self):
        starting = [file for file in self._files if file.startswith("/etc/") or "autostart" in file or "systemd" in file]
        assert not starting, starting

    def find_man_page(self):
        page = self.debian.as_user("man", "tilwin").stdout
        assert "tilwin snap ACTION" in page, page

    def complete(self, shell):
        found = self.debian.as_user(*COMPLETIONS[shell]).stdout
        assert found.split() == ["layout"], found

    def remove(self):
        user_files = self.debian.files_of_user()
        assert {"Tilwin.conf", "layouts.json"} <= {file.name for file in user_files}, [file.name for file in user_files]
        contents = {file: file.read_bytes() for file in user_files}
        self.debian.apt("remove", "tilwin")
        left = [file for file in self._files if self.debian.path(file).exists()]
        assert not left, left
        assert {file: file.read_bytes() for file in self.debian.files_of_user()} == contents

    def purge(self, before, apart_from):
        # Without a file of settings in /etc, apt forgets a removed package as if it were purged.
        self.debian.apt("install", "--no-install-recommends", str(self.new))
        self.debian.apt("purge", "--auto-remove", "tilwin")
        left = self.debian.files(apart_from) ^ before
        assert not left, sorted(left)
        known = self.debian.run("dpkg-query", "--list", "tilwin", check=False).stdout
        assert "tilwin" not in known, known
        traces = [file.name for file in self.debian.path("/var/lib/dpkg").rglob("*tilwin*")]
        assert not traces, traces

    def _listed(self):
        """Files and links; folders are shared with others."""
        names = self.debian.run("dpkg", "--listfiles", "tilwin").stdout.splitlines()
        return {name for name in names if self.debian.path(name).is_symlink() or self.debian.path(name).is_file()}
