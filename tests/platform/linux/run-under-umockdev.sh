#!/bin/sh
# Runs a test program under umockdev's preload. The sanitizer runtime must then accept not
# being first in the library list.
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0"
exec umockdev-wrapper "$@"
