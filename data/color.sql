-- color.db: the station's settings, one row per key (weizhi).
-- Colour rows hold red + 256*green + 65536*blue in shuzhi; the channel colours are those of the
-- black preset. The other rows use the small fields apy..gpy as their controls need.
create table color (weizhi text primary key, shuzhi numeric, shuzhibf numeric, apy numeric, bpy numeric,
  cpy numeric, dpy numeric, epy numeric, fpy numeric, gpy numeric);
insert into color values ('selbackcolor', 14120960, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('selforcolor', 16777215, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('gridbackcolor', 16777215, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('formbackcolor', 15790320, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('buttonbackcolor', 15790320, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('buttonfontcolor', 0, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('bxianbackcolor', 0, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('axianforecolor', 65280, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('acolor', 16711872, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('bcolor', 16711680, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('ccolor', 65535, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('dcolor', 16776960, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('ecolor', 49407, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('fcolor', 16728319, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('gcolor', 49152, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('hcolor', 255, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('icolor', 16777215, 0, 0, 0, 0, 0, 0, 0, 0);
insert into color values ('biaochicolor', 15132390, 0, 0, 0, 0, 0, 0, 0, 0);
-- replay speed step 1..9
insert into color values ('bofsd', 5, 0, 0, 0, 0, 0, 0, 0, 0);
-- dot size; apy is the bottom-wave loss length, 0 until the first start writes 25
insert into color values ('diandx', 2, 0, 0, 0, 0, 0, 0, 0, 0);
-- B-mode layout: 1 combined, 2 separated, 3 combined with centring
insert into color values ('zuhfj', 1, 0, 0, 0, 0, 0, 0, 0, 0);
-- hand step 500; apy view span (0 works as 1200); bpy marks at the head; cpy late waves shown;
-- dpy frequent reversals thinned; epy straight 70-degree picture; fpy whole file; gpy integral hidden
insert into color values ('shoudbjz', 500, 0, 0, 1, 0, 0, 0, 1, 0);
-- filter levels: H in shuzhi, I in shuzhibf, A..G in apy..gpy; channel E starts at 1
insert into color values ('guolv', 256, 256, 256, 256, 256, 256, 1, 256, 256);
