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

# in_parallel SCRIPT: runs it for each C++ file, as "$0".
in_parallel() {
    export -f formatted
    sources '*.h' '*.cpp' | xargs -P "$(nproc)" -n 1 bash -c "$1"
}

format() {
    in_parallel 'diff -u --label "$0" --label "$0, formatted" "$0" <(formatted "$0")' ||
        { echo "    ./check --format puts this right."; return 1; }
}

format_in_place() {
    in_parallel 'text=$(formatted "$0"); [ "$text" = "$(cat "$0")" ] || echo "$text" >"$0"'
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
