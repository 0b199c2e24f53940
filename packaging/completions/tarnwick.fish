# SPDX-License-Identifier: MIT
# Completion of the tarnwick command for fish.

function __tarnwick_ids
    tarnwick list --state $argv[1] --json 2>/dev/null | string match -r -a -g '"id": *"([^"]*)"'
end

function __tarnwick_settings
    tarnwick settings 2>/dev/null | string replace -r '=.*' ''
end

function __tarnwick_verb
    __fish_seen_subcommand_from $argv
end

complete -c tarnwick -f
complete -c tarnwick -l help -d 'Print help'
complete -c tarnwick -n __fish_use_subcommand -l background -d 'Start without showing anything'
complete -c tarnwick -n __fish_use_subcommand -l version -d 'Print the version'

complete -c tarnwick -n __fish_use_subcommand -a toggle -d 'Show or hide the board'
complete -c tarnwick -n __fish_use_subcommand -a board -d 'Show the board'
complete -c tarnwick -n __fish_use_subcommand -a new -d 'Write a new note on the board'
complete -c tarnwick -n __fish_use_subcommand -a quit -d 'End Tarnwick'
complete -c tarnwick -n __fish_use_subcommand -a add -d 'Make a note'
complete -c tarnwick -n __fish_use_subcommand -a edit -d 'Change a note'
complete -c tarnwick -n __fish_use_subcommand -a list -d 'List notes'
complete -c tarnwick -n __fish_use_subcommand -a show -d 'Show one note, whole'
complete -c tarnwick -n __fish_use_subcommand -a crush -d 'Finish a note'
complete -c tarnwick -n __fish_use_subcommand -a undo -d 'Take the last crush back'
complete -c tarnwick -n __fish_use_subcommand -a check -d 'Toggle the checkbox on a line'
complete -c tarnwick -n __fish_use_subcommand -a revive -d 'Bring burned notes back'
complete -c tarnwick -n __fish_use_subcommand -a sweep -d 'Delete all burned notes for good'
complete -c tarnwick -n __fish_use_subcommand -a tear -d 'Put a note onto the desktop'
complete -c tarnwick -n __fish_use_subcommand -a redock -d 'Put a note back on the board'
complete -c tarnwick -n __fish_use_subcommand -a export -d 'Write every note'
complete -c tarnwick -n __fish_use_subcommand -a import -d 'Take in an export, or the notes of another program'
complete -c tarnwick -n __fish_use_subcommand -a settings -d 'Print all settings, print one, or set one'
complete -c tarnwick -n __fish_use_subcommand -a status -d 'Tell what runs now'

complete -c tarnwick -n '__tarnwick_verb add edit list' -x -l board -d 'Board'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l color -a 'FFE169 FF7597 FFA647 06D6A0 4CC9F0 3A86FF C77DFF' -d 'Paper colour'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l theme -a 'plain graph lined parchment construction' -d 'Paper theme'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l stamp -a 'none urgent focus priority star idea approved' -d 'Stamp'
complete -c tarnwick -n '__tarnwick_verb add edit list' -x -l tag -a 'none red orange yellow green blue pink' -d 'Tag'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l repeat -a 'none daily weekdays weekly every3Days monthly' -d 'Repeat rule'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l due -a 'today tomorrow' -d 'When it is due'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l pin -d 'Only while this application is in front'
complete -c tarnwick -n '__tarnwick_verb add edit' -x -l repo -a '(__fish_complete_directories)' -d 'Only while this repository is worked on'
complete -c tarnwick -n '__tarnwick_verb add edit' -l private -d 'Hide it from captures'
complete -c tarnwick -n '__tarnwick_verb add' -l tear -d 'Put it onto the desktop'
complete -c tarnwick -n '__tarnwick_verb add' -l no-tear -d 'Leave it on the board'
complete -c tarnwick -n '__tarnwick_verb edit' -x -l text -d 'The new text'
complete -c tarnwick -n '__tarnwick_verb edit' -l no-due -d 'No due date'
complete -c tarnwick -n '__tarnwick_verb edit' -l no-pin -d 'Pinned to no application'
complete -c tarnwick -n '__tarnwick_verb edit' -l no-repo -d 'Pinned to no repository'
complete -c tarnwick -n '__tarnwick_verb edit' -l no-private -d 'Not private'
complete -c tarnwick -n '__tarnwick_verb list' -x -l state -a 'active sleeping completed burned all' -d 'Which notes'
complete -c tarnwick -n '__tarnwick_verb list' -x -l search -d 'Only texts that contain this'
complete -c tarnwick -n '__tarnwick_verb list show status' -l json -d 'As JSON'
complete -c tarnwick -n '__tarnwick_verb revive' -l all -d 'All burned notes'
complete -c tarnwick -n '__tarnwick_verb sweep' -l yes -d 'Needed: it cannot be undone'
complete -c tarnwick -n '__tarnwick_verb export' -x -l format -a 'json markdown ics' -d 'Format'
complete -c tarnwick -n '__tarnwick_verb export' -r -F -l output -d 'File to write'
complete -c tarnwick -n '__tarnwick_verb import' -F
complete -c tarnwick -n '__tarnwick_verb import' -l preview -d 'Only tell what would be imported'

complete -c tarnwick -n '__tarnwick_verb edit show' -a '(__tarnwick_ids all)'
complete -c tarnwick -n '__tarnwick_verb crush check tear redock' -a '(__tarnwick_ids active)'
complete -c tarnwick -n '__tarnwick_verb revive' -a '(__tarnwick_ids burned)'
complete -c tarnwick -n '__tarnwick_verb settings' -a '(__tarnwick_settings)'
