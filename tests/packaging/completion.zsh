# completion.zsh COMPLETION LINE: what zsh offers at the end of that line, one a line. A zsh of its own sits at a terminal
# and prints what it would add.
zmodload zsh/zpty
cat >zshrc.tmp <<'END'
PROMPT=''
fpath=("${COMPLETION:h}" $fpath)
autoload -Uz compinit
compinit -u -d "$HOME/zcompdump"
compadd() {
    if [[ "${@[1,(i)(-|--)]}" == *-[OAD]* ]]; then
        builtin compadd "$@"
        return
    fi
    local -a offered
    builtin compadd -A offered "$@"
    (( $#offered )) && print -rl -- "offered:"${^offered}
    builtin compadd "$@"
}
offered_all() { print -r -- "offered all" }
comppostfuncs=(offered_all)
zle -C offer complete-word _main_complete
bindkey '^I' offer
print ready
END
export COMPLETION="$1"
zpty shell zsh -f -i
zpty -w shell "source zshrc.tmp; rm zshrc.tmp"
zpty -r shell answer $'*ready\r\n'
zpty -n -w shell "$2"$'\t'
zpty -r shell answer $'*offered all\r\n'
typeset -U offered # some are added twice, in two groups
for line in ${(f)answer}; do
    [[ "$line" == *offered:* ]] && offered+=("${${line##*offered:}%$'\r'}")
done
print -rl -- $offered
zpty -d shell
true
