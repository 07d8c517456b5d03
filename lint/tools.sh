# The tools that ./check runs. Sourced by it, in the root.

check_folder=$root/build/check

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
        --inline-suppr --suppressions-list=lint/cppcheck.supp --error-exitcode=1
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

# tidy_files FILE...: files of one target, all as one source. Most of the time goes into Qt's
# headers, and so they are read once. When something is found (a name that two files have counts
# too), the halves are looked at one after the other, down to the single file, which has its say.
tidy_files() {
    local others=(--checks=-bugprone-suspicious-include) file
    for file in "${@:2}"; do
        others+=(--extra-arg=-include "--extra-arg=$root/$file")
    done
    if [ $# -eq 1 ]; then
        # "N warnings generated" counts what stands in other people's headers.
        tidy_source "$1" 2> >(grep -v 'warnings\? generated' >&2)
    elif ! tidy_source "$1" "${others[@]}" >/dev/null 2>&1; then
        local half=$(($# / 2)) status=0
        tidy_files "${@:1:half}" || status=1
        tidy_files "${@:half+1}" || status=1
        return $status
    fi
}

tidy_source() {
    clang-tidy --quiet -p "$check_folder" --extra-arg="-I$check_folder/forms" "${@:2}" "$1"
}

# tidy_target TARGET FILE...: a target that was clean is not looked at again until one of its
# files, a header, a form, the checks or a compiler option changes.
tidy_target() {
    local target=$1 mark="$check_folder/tidied/$1" key
    shift
    key="$common_key $(cat "$@" | sha256sum)"
    [ "$(cat "$mark" 2>/dev/null)" != "$key" ] || return 0
    tidy_files "$@" || return 1
    mkdir -p "$(dirname "$mark")"
    echo "$key" >"$mark"
}

# targets: one line "TARGET FILE..." for each. Only what this system builds: the options of others
# are not known.
targets() {
    sed -nE 's|^ *"command": .* -o ([^ ]*)\.dir/[^ ]* -c '"$root"'/([^ ]*)",$|\1 \2|p' \
        "$check_folder/compile_commands.json" | sort -u -k2,2 |
        grep -F -f <(sources '*.cpp' | sed 's|^| |') |
        awk '{ files[$1] = files[$1] " " $2 } END { for (t in files) print t files[t] }' | sort
}

tidy() {
    make_form_headers
    export root check_folder common_key
    common_key=$(sources '*.h' '*.ui' .clang-tidy | xargs cat "$check_folder/compile_commands.json" |
        sha256sum)
    export -f tidy_files tidy_source tidy_target
    targets | { [ "${1:-}" = --all ] && cat || grep -vE '^(tests|bench|fuzz)/'; } |
        xargs -P "$(nproc)" -L1 bash -c 'tidy_target "$@"' _
}

# memcheck: the whole test suite, but for the folder as installed, which is no program of tests.
memcheck() {
    local broken=0 program
    cmake --build "$check_folder"
    for program in "$check_folder"/*_tests; do
        echo "$(basename "$program")"
        QT_QPA_PLATFORM=offscreen valgrind --quiet --error-exitcode=1 --num-callers=30 \
            --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
            --suppressions=lint/memcheck.supp "$program" --gtest_brief=1 || broken=1
    done
    return $broken
}
