# Delvemoor: the two commands a player or developer needs.
#   make play  - install what is missing, build, lay out the game directory, start the game
#   make test  - install what is missing, build with sanitizers, run every test
# Other targets: build, bench, clean.

SHELL := /bin/bash
JOBS  ?= $(shell nproc)

# Debian 12 packages: libraries the game calls, the toolchain, and what the
# asset generator and the tests use.
PACKAGES := cmake make g++ pkg-config \
	liballegro4-dev liballeggl4-dev libjpgalleg4-dev libgl1-mesa-dev libglu1-mesa-dev \
	python3 python3-pil python3-numpy fonts-dejavu-core \
	clang libclang-rt-14-dev libgtest-dev libbenchmark-dev \
	libx11-dev libosmesa6-dev xvfb xauth x11-utils x11-apps xdotool xdg-utils

SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: play test build bench deps clean

deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update && $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y $$missing; \
	fi

build: deps
	cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build build -j $(JOBS)

play: build
	cd build/game && ./Delvemoor

# The test tree is built with clang, AddressSanitizer, UndefinedBehaviorSanitizer
# and the fuzz targets.
test: deps
	CC=clang CXX=clang++ cmake -S . -B build-test -DCMAKE_BUILD_TYPE=Debug \
	  -DDELVEMOOR_TESTS=ON -DDELVEMOOR_SANITIZE=ON -DDELVEMOOR_FUZZ=ON
	cmake --build build-test -j $(JOBS)
	cd build-test && ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DDELVEMOOR_BENCH=ON
	cmake --build build-bench -j $(JOBS)
	@for b in build-bench/bench/bench_*; do [ -x "$$b" ] && echo "== $$b" && xvfb-run -a -s "-screen 0 1024x768x24" "$$b"; done
	@echo "== frame rate (Xvfb, software OpenGL)"
	xvfb-run -a -s "-screen 0 2048x1536x24" build-bench/bench/frame_rate $(CURDIR)/build-bench/game 5

clean:
	rm -rf build build-test build-bench
