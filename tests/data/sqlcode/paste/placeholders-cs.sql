a = '?' and b = :Bind1 -- ?
/* ? */ c = :Bind2,:Bind3
