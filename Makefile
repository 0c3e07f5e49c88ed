# Marl: two commands for a fresh Debian or Ubuntu machine.
#   make run    install what is missing, build, start the editor
#   make test   install what is missing, build, run the whole suite
#   make asan   the suite again under the address and undefined-behaviour sanitizers
#   make fuzz   each fuzz target for FUZZ_SECONDS (60) seconds; `make test` runs
#               each briefly as a smoke run (fuzz/run smoke)
#   make mutants  plant each fault of tools/mutants/faults.tsv and run the suite
#   make bench  reading speed, the zone and shop editors' open and save, marl-check
#               --world beside the server's boot, and the room editor's first
#               paint with a 100 x world read behind it
#   make package  a Debian package, marl_<version>_<arch>.deb, in this folder

PACKAGES := cmake ninja-build g++ qt6-base-dev qt6-base-dev-tools libgl-dev
# Checks of the installed desktop files, and dpkg-shlibdeps for the package.
PACKAGES += desktop-file-utils appstream shared-mime-info dpkg-dev
# The fonts of the desktops the windows must fit, each set checked by the
# fit test under a fontconfig configuration of its own.
PACKAGES += fonts-dejavu-core fonts-liberation fonts-noto-core fonts-noto-mono fonts-urw-base35
# The fuzz targets are built with clang and its libFuzzer.
test fuzz fuzz-build: PACKAGES += clang libclang-rt-dev
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 60

.PHONY: all deps build run test asan bench fuzz fuzz-build package mutants clean

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

# The fuzz smoke run comes first so that the suite's summary closes the output.
test: build fuzz-build
	fuzz/run smoke
	ctest --preset default -j $(JOBS)

asan: deps
	cmake --preset asan
	cmake --build --preset asan -j $(JOBS)
	ctest --preset asan -j $(JOBS)

fuzz-build: deps
	cmake --preset fuzz
	cmake --build --preset fuzz -j $(JOBS)

fuzz: fuzz-build
	fuzz/run $(FUZZ_SECONDS)

bench: build
	cmake --build --preset default --target bench/all -j $(JOBS)
	./build/bench/marl-bench ../shared/corpus
	./build/bench/zone-editor-bench ../shared/corpus/25.zon
	./build/bench/shop-editor-bench ../shared/corpus/30.shp
	./build/bench/world-bench ../shared/server/circle/lib/world build/marl-check \
	  ../shared/server/boot-check build/bench-worlds
	./build/bench/world-names-bench build/bench-worlds/x100

# Each planted fault of tools/mutants/faults.tsv against the whole suite.
mutants: build
	tools/mutants/run

package: build
	rm -f build/marl_*.deb
	cd build && cpack -G DEB
	cp build/marl_*.deb .

clean:
	rm -rf build build-asan build-fuzz
