# Marl: two commands for a fresh Debian or Ubuntu machine.
#   make run    install what is missing, build, start the editor
#   make test   install what is missing, build, run the whole suite
#   make asan   the suite again under the address and undefined-behaviour sanitizers

PACKAGES := cmake ninja-build g++ qt6-base-dev qt6-base-dev-tools libgl-dev
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

.PHONY: all deps build run test asan bench clean

all: build

deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq --no-install-recommends $$missing; \
	fi

build: deps
	cmake --preset default
	cmake --build --preset default -j $(JOBS)

run: build
	./build/marl

test: build
	ctest --preset default -j $(JOBS)

asan: deps
	cmake --preset asan
	cmake --build --preset asan -j $(JOBS)
	ctest --preset asan -j $(JOBS)

bench: build
	./build/bench/marl-bench ../shared/corpus

clean:
	rm -rf build build-asan
