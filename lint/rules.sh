# The rules of the house that no tool knows. Sourced by ./check, in the root.

# forbid "SENTENCE" PATTERN PATHS...: prints each line that matches in a tracked file, and why not.
forbid() {
    local sentence=$1 pattern=$2
    shift 2
    git grep -nIP "$pattern" -- "$@" | sed "s|\$|\n    $sentence|" | grep . && broken=1
    return 0
}

last_lines() {
    local file
    for file in $(git grep -Il '' -- ':!*corpus*'); do
        [ -z "$(tail -c1 "$file")" ] && continue
        printf '%s\n    %s\n' "$file" "The last line of a file has an end too."
        broken=1
    done
}

house_rules() {
    local code="*.h *.cpp" broken=0
    set -f  # the patterns are git's to expand
    forbid "Messages, questions and file choices go through the gate (platform/Gate.h)." \
        'QMessageBox::|QFileDialog' $code ':!platform_qt/forms/QtGate.cpp' ':!widgets/Screen.cpp' \
        ':!app/EndOnSignal.cpp' ':!tests'
    forbid "Connect by pointers to members: a name in a string is not checked." \
        '\b(SIGNAL|SLOT)\s*\(' $code
    forbid "Qt would connect this slot by its name; name it control and event: Close_Click." \
        '\bon_[A-Za-z0-9]+_\w+\s*\(' $code
    forbid "Waits go through platform/System.h, so that a test need not wait." \
        'this_thread::sleep_|QThread::[mu]?sleep|\b(u|nano)sleep\s*\(' \
        $code ':!platform_qt' ':!simulator' ':!bench' ':!tests'
    forbid "No blanks at the end of a line, no tabs." '[ \t]+$|\t' ':!*corpus*'
    last_lines
    forbid "A path of one machine is of no use on another." \
        '(?<![\w.$}/])/(home|root|work|Users)/\w' ':!lint'
    set +f
    return $broken
}
