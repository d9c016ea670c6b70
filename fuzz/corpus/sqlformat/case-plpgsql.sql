A\echo Use "CREATE EXTENSION quillbox_demo" to load this file. \quit
CREATE OR REPLACE FUNCTION test_it(p_id integer, p_name varchar (100)) RETURNS SETOF text AS $$ DECLARE v_count integer := 0; r record; BEGIN PERFORM plan(0); FOR r IN SELECT a, b FROM t WHERE t.id = p_id LOOP v_count := v_count + 1; IF r.a !~ '^x' AND r.b && ARRAY[1,2] THEN RETURN NEXT r.a; ELSIF r.a @> r.b THEN RAISE NOTICE 'x %', r.a; ELSE NULL; END IF; END LOOP; RETURN QUERY SELECT (x)::regproc::text FROM y WHERE z->>'k' = 'v';
EXCEPTION WHEN others THEN RAISE; END; $$ LANGUAGE plpgsql;
-- bodies in other languages and in single quotes stay as they are
CREATE FUNCTION py() RETURNS int AS $py$
return   1
$py$ LANGUAGE plpython3u;
CREATE FUNCTION add(a int, b int) RETURNS int AS 'select $1 + $2' LANGUAGE sql IMMUTABLE;
CREATE FUNCTION sq(x int) RETURNS int LANGUAGE sql AS $body$ select x * x $body$;
DO $$ BEGIN IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'demo') THEN CREATE ROLE demo; END IF; END $$;
BEGIN; SELECT 1; COMMIT;
