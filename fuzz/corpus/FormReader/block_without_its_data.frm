(a "two
lines \"q\" \ÿn" (binary (size 3) *data 00 FF 7 zz)) )