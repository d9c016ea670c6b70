begin
  for r in c loop
    [update t set x = r.@id];
  end loop;