autocmd BufRead,BufNewFile *.mirlow setfiletype mirlow
