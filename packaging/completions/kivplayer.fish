# Completion of kivplayer for fish. Options and the kind of their values come from the program's own help.

function __kivplayer_motions
    __fish_complete_path (commandline -ct) | string match -ri '^[^\t]*(?:\.bvh|/)(?:\t.*)?$'
end

complete -c kivplayer -f -a '(__kivplayer_motions)'
for line in (type -q kivplayer; and kivplayer --help 2>/dev/null)
    # Short name, long name, value, text; what is missing is empty.
    set -l parts (string match -rg '^  (-\w,|)--([a-z-]+)( \S+|)(?: \.\.\.|) *(.*)$' -- $line)
    or continue
    set -l option -c kivplayer -l $parts[2] -d "$parts[4]"
    test -n "$parts[1]"; and set -a option -s (string trim -c '-,' -- $parts[1])
    switch (string trim "$parts[3]")
        case ''
            complete $option
        case FILE
            complete $option -r -F
        case FOLDER
            complete $option -x -a '(__fish_complete_directories (commandline -ct))'
        case 'auto|off|FILE'
            complete $option -r -F -a 'auto off'
        case UNIT
            complete $option -x -a 'auto cm m mm inch dm cmu'
        case AXIS
            complete $option -x -a 'auto x -x y -y z -z'
        case VIEW
            complete $option -x -a 'front back left right three-quarter'
        case THINGS
            complete $option -x -a '(__fish_append , names com contacts skeleton props grid)'
        case '*'
            complete $option -x
    end
end
