# Delvemoor: the two commands a player or developer needs.
#   make play  - install what is missing, build, lay out the game directory, start the game
#   make test  - install what is missing, build with sanitizers, run every test
# Other targets: build, bench, install, uninstall, deb, clean.

SHELL := /bin/bash
JOBS  ?= $(shell nproc)

# Debian 12 packages. A player needs only the first set: the libraries the
# game calls, the compiler, and what the asset generator draws with;
# xdg-utils opens the manual, x11-utils shows the game's message boxes.
PLAY_PACKAGES := cmake make g++ pkg-config \
	liballegro4-dev liballeggl4-dev libjpgalleg4-dev libgl1-mesa-dev libglu1-mesa-dev libx11-dev \
	python3 python3-pil python3-numpy fonts-dejavu-core xdg-utils x11-utils
# The tests and benchmarks add these: clang with its sanitizers, GoogleTest and
# Google Benchmark, an X server and Python's X library to drive the game in,
# OSMesa for pixel tests, the validators of the menu entries, and what builds and checks the package.
TEST_PACKAGES := $(PLAY_PACKAGES) \
	clang libclang-rt-14-dev libgtest-dev libbenchmark-dev \
	libosmesa6-dev xvfb xauth x11-apps xdotool python3-xlib \
	desktop-file-utils appstream man-db debhelper dpkg-dev fakeroot lintian
PACKAGES = $(PLAY_PACKAGES)

# Where make install lays the game out (the install manifest lists every file).
PREFIX ?= /usr/local
# What make clean empties; the player's files in their game folders survive.
BUILD_DIRS ?= build build-test build-bench build-deb

SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: play test build bench deps test-deps install uninstall deb clean

deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update && $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y $$missing; \
	fi

test-deps:
	@$(MAKE) --no-print-directory deps PACKAGES="$(TEST_PACKAGES)"

build: deps
	cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX=$(PREFIX)
	cmake --build build -j $(JOBS)

play: build
	cd build/game && ./Delvemoor

# The test tree is built with clang, AddressSanitizer, UndefinedBehaviorSanitizer
# and the fuzz targets. A test that fails fails the suite: the end-to-end runs
# wait on the frames the game shows, not on the clock, so they are not retried.
test: test-deps
	CC=clang CXX=clang++ cmake -S . -B build-test -DCMAKE_BUILD_TYPE=Debug \
	  -DDELVEMOOR_TESTS=ON -DDELVEMOOR_SANITIZE=ON -DDELVEMOOR_FUZZ=ON
	cmake --build build-test -j $(JOBS)
	cd build-test && ctest --output-on-failure -j $(JOBS)

bench: test-deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DDELVEMOOR_BENCH=ON
	cmake --build build-bench -j $(JOBS)
	@for b in build-bench/bench/bench_*; do [ -x "$$b" ] && echo "== $$b" && xvfb-run -a -s "-screen 0 1024x768x24" "$$b"; done
	@echo "== frame rate (Xvfb, software OpenGL)"
	xvfb-run -a -s "-screen 0 2048x1536x24" build-bench/bench/frame_rate $(CURDIR)/build-bench/game 5

# The game folder for the system, the command, menu entries, icon and manual
# page under PREFIX; sudo only where PREFIX is not yours to write.
install: build
	@if [ -w "$(PREFIX)" ] || { [ ! -e "$(PREFIX)" ] && [ -w "$$(dirname "$(PREFIX)")" ]; }; then \
	  cmake --install build; else $(SUDO) cmake --install build; fi

# Only the game's own folder goes with its files: the shared folders it put
# files into (games/, share/applications/ ...) belong to the system.
uninstall:
	@test -f build/install_manifest.txt || { echo "Nothing installed from this tree."; exit 1; }
	@prefix=$$(sed -n 's/^CMAKE_INSTALL_PREFIX:PATH=//p' build/CMakeCache.txt); \
	sudo=$(SUDO); [ -w "$$prefix" ] && sudo=; \
	$$sudo xargs -d '\n' rm -fv < build/install_manifest.txt; \
	[ ! -d "$$prefix/lib/games/delvemoor" ] || $$sudo find "$$prefix/lib/games/delvemoor" -depth -type d -empty -delete

# The Debian package, build-deb/delvemoor_<version>_<arch>.deb, checked by lintian.
deb: test-deps
	bash debian/build-deb.sh build-deb

# Everything the builds made goes, except what a player made in a game folder:
# the settings (game/gameconfig.cfg) and the levels (game/custom/).
clean:
	@for dir in $(BUILD_DIRS); do \
	  [ -d "$$dir" ] || continue; \
	  find "$$dir" -mindepth 1 -maxdepth 1 ! -name game -exec rm -rf {} +; \
	  [ -d "$$dir/game" ] && find "$$dir/game" -mindepth 1 -maxdepth 1 \
	    ! -name gameconfig.cfg ! -name custom -exec rm -rf {} +; \
	  rmdir "$$dir/game" "$$dir" 2>/dev/null; \
	  [ -d "$$dir" ] && echo "Kept your settings and levels in $$dir/game/"; \
	done; true
