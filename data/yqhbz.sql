-- yqhbz.db: instruments and their teams.
create table yqhbz (yqh text, bz text);
insert into yqhbz values ('00101', '探伤一组');
insert into yqhbz values ('00102', '探伤二组');
insert into yqhbz values ('00215', '探伤三组');
