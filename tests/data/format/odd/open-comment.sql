begin x := 1; if x > 0 then null; end if; end;
/* open comment  
