# Completion of the command vorlix for bash.
_vorlix()
{
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} task=${COMP_WORDS[1]}
    local words= files=
    if [ "$COMP_CWORD" -eq 1 ]; then
        words="passes events contacts look track state match convert next now report fit field identify --help --version"
    else
        case $before in
            --elements | --output | --horizon) files=1 ;;
            --format)
                case $task in
                    passes) words="table csv json ndjson ics" ;;
                    events) words="table csv json ndjson ics geojson" ;;
                    contacts) words="table csv json ndjson ics" ;;
                    look) words="table csv json ndjson" ;;
                    track) words="table csv json ndjson geojson" ;;
                    state) words="table csv json ndjson oem" ;;
                    match) words="table csv json ndjson" ;;
                    convert) words="tle csv json xml kvn" ;;
                    next) words="table csv json ndjson ics" ;;
                    now) words="table csv json ndjson" ;;
                    report) words="table csv json ndjson iod uk rde" ;;
                    fit) words="table csv json ndjson tle" ;;
                    field | identify) words="table csv json ndjson" ;;
                esac
                ;;
            --order) words="time entry" ;;
            --sort) words="time magnitude" ;;
            --kind) words="sun moon place flare iridium" ;;
            --frame) words="true-of-date mean-of-date j2000 earth-fixed" ;;
            --models) words="modern nutation deep-space leap-seconds beta rendezvous hour-angle semi-annual inversion integrator" ;;
            --from) words="now tonight" ;;
            --to) words="now" ;;
            --at) words="now" ;;
            --clock) words="now" ;;
            --zone) words="Z local" ;;
            --code) words="1 2 3 4 5 6 7" ;;
            --satellite | --site | --site-name | --days | --limit | --workers | --min-elevation | --max-sun | --min-duration | --brighter | --place | --mirror | --normal | --max-distance | --max-magnitude | --step | --frequency | --length | --azel | --radec | --radius | --window | --direction | --hold | --size | --angle | --exposure | --streak | --clock-offset) ;;
            *)
                case $task in
                    passes) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --order --visible --moonshine --all --min-elevation --max-sun --horizon --min-duration --thorough --brighter --dark-sky --sort --length --models --no-config --clock --help" ;;
                    events) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --order --visible --moonshine --all --min-elevation --max-sun --horizon --models --no-config --clock --help --kind --place --mirror --normal --max-distance --max-magnitude" ;;
                    contacts) words="--elements --site --site-name --from --to --days --zone --limit --workers --format --output --visible --all --min-duration --models --no-config --clock --help" ;;
                    look) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --models --no-config --clock --help --step --frequency --length" ;;
                    track) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --models --no-config --clock --help --step" ;;
                    state) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --models --no-config --clock --help --step --frame --numeric" ;;
                    match) words="--elements --satellite --site --site-name --zone --limit --workers --format --output --order --visible --moonshine --all --min-elevation --max-sun --models --no-config --clock --help --at --azel --radec --radius --window --direction" ;;
                    convert) words="--elements --satellite --limit --workers --format --output --no-config --clock --help" ;;
                    next) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --order --visible --moonshine --all --min-elevation --max-sun --horizon --models --no-config --clock --help" ;;
                    now) words="--elements --satellite --site --site-name --from --zone --limit --workers --format --output --visible --moonshine --all --min-elevation --max-sun --models --no-config --clock --help --length" ;;
                    report) words="--zone --limit --format --output --no-config --clock --help --code" ;;
                    fit) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --models --no-config --clock --help --hold --initial --geometric" ;;
                    field) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --visible --length --azel --radec --radius --size --angle --exposure --free --models --no-config --clock --help" ;;
                    identify) words="--elements --satellite --site --site-name --from --to --days --zone --limit --workers --format --output --length --exposure --streak --clock-offset --models --no-config --clock --help" ;;
                esac
                ;;
        esac
    fi
    # names of files stand behind these tasks themselves
    case $task in
        report | fit | identify) [ "$COMP_CWORD" -gt 1 ] && [ "${current#-}${before#--}" = "$current$before" ] && files=1 ;;
    esac
    if [ -n "$files" ]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    fi
}
complete -o filenames -F _vorlix vorlix
