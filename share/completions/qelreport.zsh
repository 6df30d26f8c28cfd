#compdef qelreport
# Completion of qelreport's options and their values for zsh.

_arguments \
  '--log=[the modem log to read]:log:_files' \
  '--settings=[services, tariffs and options]:settings:_files -g "*.(#i)reg"' \
  '--from=[first day of the report]:YYYY-MM-DD: ' \
  '--to=[last day of the report]:YYYY-MM-DD: ' \
  '--report=[what a line is for]:report:(summary details compare)' \
  '--explain=-[why connections cost what they cost; all, or that of a number]::number: ' \
  '*--compare=[settings to price the log under too]:settings:_files -g "*.(#i)reg"' \
  '--format=[how the report is written]:format:(text csv json html)' \
  '--output=[where the report is written]:file:_files' \
  '--stats[print the statistics of the log instead]' \
  '--check[print what is doubtful in the settings instead]' \
  '--follow[print a line as each call closes]' \
  '--import=[take exported settings into your own]:settings:_files -g "*.(#i)reg"' \
  '--help[print the help]' \
  '-h[print the help]' \
  '--version[print the version]'
