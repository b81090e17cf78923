# make test   installs what is missing, builds both builds, and runs every
#             test of each build this machine can run under Wine.
# make demo   builds and runs the example program.
# make bench  builds in Release and runs the benchmarks.
# The 64-bit build lives in $(BUILD)/x86_64 and the 32-bit one in
# $(BUILD)/i686; demo and bench take the 32-bit one where it runs.
BUILD ?= build
BENCH_BUILD ?= build-bench

.PHONY: all deps build test demo bench clean

all: build

deps:
	@scripts/install-deps.sh

build: deps
	bash -c '. scripts/arch.sh && for arch in $$zk_arches; do \
	  zk_build $$arch $(BUILD)/$$arch Debug || exit 1; done'

test: deps
	scripts/test.sh $(BUILD)

demo: deps
	scripts/demo.sh $(BUILD)

bench: deps
	scripts/bench.sh $(BENCH_BUILD)

clean:
	rm -rf $(BUILD) $(BENCH_BUILD)
