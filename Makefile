# The commands of the project. `make demo` shows what the library does, `make test` proves it; both install what is missing, build and run.

JOBS ?= $(shell nproc)

.PHONY: demo test build bench check-format format packages clean

demo: build
	examples/demo.sh

test: build
	ctest --preset release --parallel $(JOBS)

build: packages
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS)

bench: build
	bench/run.sh

packages:
	tools/install-packages.sh

check-format:
	tools/lint/lint.sh

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf build build-sanitize build-fuzz
