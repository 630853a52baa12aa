#!/bin/sh
# Puts a work place together: two terminals, each in its place, and a layout that brings them back there.
set -eu

# Starts a terminal under a name of its own and waits for its window.
open_terminal() {
  xterm -class "$1" -title "$1" &
  until tilwin windows --json | grep -q "\"title\":\"$1\""; do
    sleep 0.1
  done
}

if tilwin layout list | grep -qx "Work place"; then
  tilwin layout apply "Work place" && exit
fi
tilwin set gap 8
open_terminal Editor
open_terminal Log
tilwin place "editor left two thirds, log right third"
tilwin layout save "Work place"
