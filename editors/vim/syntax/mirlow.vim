" Vim syntax of mirlow scripts.
if exists('b:current_syntax')
  finish
endif

syntax case match
" Digits with at most one full stop, then perhaps an exponent, which has no sign.
syntax match mirlowNumber /\<\d\+\%(\.\d*\)\?\%(e\d\+\)\?\>/
syntax match mirlowNumber /\<\d\+\./
syntax match mirlowNumber /\%(\w\)\@1<!\.\d\+\%(e\d\+\)\?\>/
syntax match mirlowFunction /\<\%(max\|min\|rand\|round\|round_down\|round_up\)\>\ze *(/
syntax match mirlowType /\%(:\s*\)\@16<=\<\%(Reference\|Scalar\|Symbol\|Vector\)\>/
syntax match mirlowLastResult /\<_\>/
syntax match mirlowOperator /[-+*\/^!&=:]/
" Erases, or asks: the first character of a command.
syntax match mirlowCommand /\%(^\|;\)\@1<=[~?]/
syntax match mirlowSeparator /;/
syntax match mirlowBracket /[()<>\[\]]/
" A comment is the first thing in a command and ends with it. It stands last, to win over operators.
syntax match mirlowComment /\%(^\|;\)\@1<=\/\/[^;]*/

highlight default link mirlowComment Comment
highlight default link mirlowNumber Number
highlight default link mirlowFunction Function
highlight default link mirlowType Type
highlight default link mirlowLastResult Special
highlight default link mirlowOperator Operator
highlight default link mirlowCommand Statement
highlight default link mirlowSeparator Delimiter
highlight default link mirlowBracket Delimiter

let b:current_syntax = 'mirlow'
