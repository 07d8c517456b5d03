# The tools that ./check runs. Sourced by it, in the root.

check_folder=$PWD/build/check

sources() { git ls-files -- "$@"; }

configure() {
    cmake -G Ninja -S . -B "$check_folder" -DCMAKE_BUILD_TYPE=Debug >/dev/null
}

# The version decides as much as the style does: 14 is Debian 12's.
format() {
    sources '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
}

# The inner checks of "style" restate taste; an inline suppression carries its reason beside it.
lint_with_cppcheck() {
    sources '*.cpp' | cppcheck --quiet --file-list=- -j "$(nproc)" -I . --language=c++ --std=c++20 \
        --library=qt --library=googletest --enable=warning,performance,portability \
        --inline-suppr --suppressions-list=tests/lint/cppcheck.supp --error-exitcode=1
}

# The forms' headers, without a build: all into one folder.
make_form_headers() {
    local uic form
    uic=$(qtpaths6 --query QT_HOST_LIBEXECS)/uic
    mkdir -p "$check_folder/forms"
    for form in $(sources '*.ui'); do
        "$uic" "$form" -o "$check_folder/forms/ui_$(basename "$form" .ui).h"
    done
}

# tidy_one FILE: a file that was clean is not looked at again until it, a header, a form, the
# checks or its compiler options change.
tidy_one() {
    local file=$1 mark="$check_folder/tidied/$1" key
    key="$common_key $(cat "$file" | sha256sum)"
    [ "$(cat "$mark" 2>/dev/null)" != "$key" ] || return 0
    # "N warnings generated" counts what stands in other people's headers.
    clang-tidy --quiet -p "$check_folder" --extra-arg="-I$check_folder/forms" "$file" \
        2> >(grep -v 'warnings\? generated' >&2) || return 1
    mkdir -p "$(dirname "$mark")"
    echo "$key" >"$mark"
}

tidy() {
    make_form_headers
    export check_folder common_key
    common_key=$(sources '*.h' '*.ui' .clang-tidy | xargs cat "$check_folder/compile_commands.json" |
        sha256sum)
    export -f tidy_one
    # Only what this system builds: the others' options are not known.
    sed -n 's|^ *"file": "'"$PWD"'/\(.*\)".*|\1|p' "$check_folder/compile_commands.json" |
        sort -u | grep -Fx -f <(sources '*.cpp') |
        { [ "${1:-}" = --all ] && cat || grep -vE '^(tests|bench|fuzz)/'; } |
        xargs -P "$(nproc)" -I{} bash -c 'tidy_one "$1"' _ {}
}

memcheck() {
    local program
    cmake --build "$check_folder" --target logic_tests form_tests
    for program in logic_tests form_tests; do
        QT_QPA_PLATFORM=offscreen valgrind --quiet --error-exitcode=1 --leak-check=full \
            --errors-for-leak-kinds=definite --show-leak-kinds=definite --num-callers=30 \
            --suppressions=tests/lint/memcheck.supp "$check_folder/$program" --gtest_brief=1
    done
}
