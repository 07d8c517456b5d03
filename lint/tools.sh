# The tools that ./check runs. Sourced by it, in the root.

check_folder=$root/build/release-clang

sources() { git ls-files -- "$@"; }

# formatted FILE: as it should be. The version decides as much as the style does: 14 is Debian 12's.
# It takes the braces around single statements away, but then breaks lines at lambdas that fit, so
# the lines are broken in a run of its own.
formatted() {
    clang-format --style='{BasedOnStyle: InheritParentConfig, RemoveBracesLLVM: true}' "$1" |
        clang-format --assume-filename="$1"
}

format() {
    local file broken=0
    for file in $(sources '*.h' '*.cpp'); do
        formatted "$file" | diff -u --label "$file" --label "$file, formatted" "$file" - || broken=1
    done
    [ $broken = 0 ] || echo "    ./check --format puts this right."
    return $broken
}

format_in_place() {
    local file text
    for file in $(sources '*.h' '*.cpp'); do
        text=$(formatted "$file")
        [ "$text" = "$(cat "$file")" ] || echo "$text" >"$file"
    done
}

# The inner checks of "style" restate taste; an inline suppression carries its reason beside it.
lint_with_cppcheck() {
    sources '*.cpp' | cppcheck --quiet --file-list=- -j "$(nproc)" -I . --language=c++ --std=c++20 \
        --library=qt --library=googletest --enable=warning,performance,portability \
        --inline-suppr --suppressions-list=lint/cppcheck.supp --error-exitcode=1
}

# The release by clang, with clang-tidy beside the compiler: what was clean is not looked at again until
# a file, a header or an option changes; the checks are no part of the command. With each file by
# itself, as by run-clang-tidy, it would take four times as long, most of it in Qt's headers.
tidy() {
    cmake --preset release-clang >/dev/null
    if ! cmp -s .clang-tidy "$check_folder/checks"; then
        cmake --build --preset release-clang --target clean >/dev/null
        cp .clang-tidy "$check_folder/checks"
    fi
    # Also what ctest needs not: the programs behind ./bench/run, ./bench/soak and ./docs/make-pictures.
    cmake --build --preset release-clang --target all exchange_bench soak pictures -- -k 0 --quiet
}

# The whole test suite, but for the folder as installed, which is no program of tests.
memcheck() {
    local broken=0 program
    cmake --preset debug >/dev/null
    cmake --build --preset debug
    for program in build/debug/*_tests; do
        echo "$(basename "$program")"
        QT_QPA_PLATFORM=offscreen valgrind --quiet --error-exitcode=1 --num-callers=30 \
            --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
            --suppressions=lint/memcheck.supp "$program" --gtest_brief=1 || broken=1
    done
    return $broken
}
