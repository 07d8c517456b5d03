# Completion of zltctl for bash.

_zltctl() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command="" part="" i
    local options="--port --baud --id --yes --json --quiet --help --version"
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --port | --baud | --id | --new-id | --speed | --accel | --every) ((i++)) ;;
            -*) ;;
            *) if [ -z "$command" ]; then command=${COMP_WORDS[i]}; elif [ -z "$part" ]; then part=${COMP_WORDS[i]}; fi ;;
        esac
    done
    case $before in
        --port) COMPREPLY=($(compgen -W "$(printf "COM%d " {1..15})" -- "$word") $(compgen -f -- "$word")); return ;;
        --baud) COMPREPLY=($(compgen -W "9600 19200 38400 57600 115200" -- "$word")); return ;;
        --id) COMPREPLY=($(compgen -W "keep from-file $(printf '%02d ' {0..99})" -- "$word")); return ;;
        --new-id | --speed | --accel | --every) return ;;
    esac
    local choices="" files=""
    case "$command $part" in
        " ") choices="send terminal status watch move jog home stop abort search parameters program" ;;
        "status "*) choices="position encoder current motion negative-limit positive-limit home driver mode output line program" ;;
        "watch "*) choices="--every --csv" ;;
        "move "*) choices="--speed --accel --wait" ;;
        "jog "*) choices="+ - --speed --accel --wait" ;;
        "home "*) choices="H+ H- HL+ HL- L+ L- ZH+ ZH- Z+ Z- --speed --accel --wait" ;;
        "stop "*) choices="--wait" ;;
        "search "*) choices="--all" ;;
        "parameters ") choices="read write diff" ;;
        "parameters write") choices="--id --new-id --store" files=yes ;;
        "parameters "*) files=yes ;;
        "program ") choices="compile download upload clear run stop" ;;
        "program compile" | "program download" | "program upload") files=yes ;;
    esac
    COMPREPLY=($(compgen -W "$choices $options" -- "$word"))
    if [ -n "$files" ] && [[ $word != -* ]]; then
        compopt -o filenames
        COMPREPLY+=($(compgen -f -- "$word"))
    fi
}
complete -F _zltctl zltctl
