(a "two
lines \"q\" \\n" (binary (size 3) (data 00 FF 7 zz)) )