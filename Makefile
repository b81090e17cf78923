# make test   installs what is missing, builds, and runs every test under Wine.
# make demo   builds and runs the example program.
# make bench  builds in Release and runs the benchmarks.
BUILD ?= build
BENCH_BUILD ?= build-bench
TOOLCHAIN := cmake/i686-w64-mingw32.cmake
CONFIGURE := cmake -G Ninja -DCMAKE_TOOLCHAIN_FILE=$(TOOLCHAIN)

.PHONY: all deps configure build test consumer demo bench clean

all: build

deps:
	@scripts/install-deps.sh

$(BUILD)/build.ninja: | deps
	$(CONFIGURE) -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Debug

configure: $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD)

test: build
	scripts/wine-session.sh $(BUILD) sh -c '\
	  ctest --test-dir $(BUILD) --output-on-failure && \
	  scripts/check-consumer.sh $(BUILD)'

demo: build
	scripts/demo.sh $(BUILD)

bench: deps
	$(CONFIGURE) -S . -B $(BENCH_BUILD) -DCMAKE_BUILD_TYPE=Release -DZK_BUILD_TESTS=OFF -DZK_BUILD_BENCH=ON
	cmake --build $(BENCH_BUILD)
	scripts/wine-session.sh $(BENCH_BUILD) wine $(BENCH_BUILD)/bin/zkbench.exe

clean:
	rm -rf $(BUILD) $(BENCH_BUILD)
