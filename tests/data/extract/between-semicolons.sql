select 1 from a;
[select x@ from b];
select 3;