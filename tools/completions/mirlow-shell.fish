# fish completion for mirlow-shell
complete -c mirlow-shell -s e -l execute -x -d 'Run commands'
complete -c mirlow-shell -l plain -d 'Print the values of expressions and queries alone'
complete -c mirlow-shell -l json -d 'Print an object of JSON for each command'
complete -c mirlow-shell -l stop-on-error -d 'Run nothing after a command that reported an error'
complete -c mirlow-shell -l color -x -a 'auto always never' -d 'Use colours'
complete -c mirlow-shell -s h -l help -d 'Show a short help'
complete -c mirlow-shell -s V -l version -d 'Show the version'
