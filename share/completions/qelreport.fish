# Completion of qelreport's options and their values for fish.

complete -c qelreport -f
complete -c qelreport -l log -rF -d 'the modem log to read'
complete -c qelreport -l settings -rF -d 'services, tariffs and options'
complete -c qelreport -l from -x -d 'first day of the report, YYYY-MM-DD'
complete -c qelreport -l to -x -d 'last day of the report, YYYY-MM-DD'
complete -c qelreport -l report -xa 'summary details compare' -d 'what a line is for'
complete -c qelreport -l explain -d 'why connections cost what they cost; all, or that of a number'
complete -c qelreport -l compare -rF -d 'settings to price the log under too'
complete -c qelreport -l format -xa 'text csv json html' -d 'how the report is written'
complete -c qelreport -l output -rF -d 'where the report is written'
complete -c qelreport -l stats -d 'print the statistics of the log instead'
complete -c qelreport -l check -d 'print what is doubtful in the settings instead'
complete -c qelreport -l follow -d 'print a line as each call closes'
complete -c qelreport -l import -rF -d 'take exported settings into your own'
complete -c qelreport -s h -l help -d 'print the help'
complete -c qelreport -l version -d 'print the version'
