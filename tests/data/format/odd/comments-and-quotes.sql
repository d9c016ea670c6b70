select /* inline */ a -- note
-- own line
, b from "Quoted Table" where x <> -1 and y||z = `q`