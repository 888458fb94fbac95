#compdef trillomat
_arguments \
  '(- *)--help[print the options and end]' \
  '(- *)--version[print the version and end]' \
  '--screenshot[save a picture of the window and end]:picture:_files -g "*.png(-.)"' \
  '1:melody:_files -g "*.(imy|emy|rtx|mel)(-.)"'
