#pragma once

// What is asked of the catalogue of a PostgreSQL server, from version 12 on. $1 is the schema's identifier.
// Identifiers grow, so that their order is that in which things were made.
namespace tessel::db::postgres {

// How the server shows expressions and types, whatever the user or the database prefers; $1 is the schema's
// name.
constexpr const char* settings = R"(
    select set_config(name, value, true)
    from (values ('search_path', quote_ident($1)), ('quote_all_identifiers', 'off'), ('DateStyle', 'ISO, YMD'),
                 ('IntervalStyle', 'postgres'), ('TimeZone', 'UTC'), ('bytea_output', 'hex'),
                 ('standard_conforming_strings', 'on')) as setting (name, value))";

constexpr const char* schemaNamed = "select oid from pg_namespace where nspname = $1";

constexpr const char* schemaNames = R"(
    select string_agg('"' || nspname || '"', ', ' order by nspname) as names
    from pg_namespace where nspname !~ '^pg_' and nspname <> 'information_schema')";

constexpr const char* tables = R"(
    select c.oid as tab, c.relname as name, c.relkind as kind, d.description as comment
    from pg_class c
    left join pg_description d on d.objoid = c.oid and d.classoid = 'pg_class'::regclass and d.objsubid = 0
    where c.relnamespace = $1 and c.relkind in ('r', 'p', 'v', 'm', 'f') and not c.relispartition
    order by c.oid)";

// The type is that under a domain. One that the server did not bring along bears the name of its schema, so
// that it is not taken for one of the server's own.
constexpr const char* columns = R"(
    with recursive domain (oid, base, modifier, isnotnull) as (
        select oid, typbasetype, typtypmod, typnotnull from pg_type where typtype = 'd'
        union all
        select d.oid, t.typbasetype, t.typtypmod, d.isnotnull or t.typnotnull
        from domain d join pg_type t on t.oid = d.base and t.typtype = 'd')
    select a.attrelid as tab, a.attname as name,
           case when t.typtype = 'e' then
                    'character varying(' || coalesce((select max(char_length(e.enumlabel)) from pg_enum e
                                                      where e.enumtypid = t.oid), 1) || ')'
                when t.oid = 'interval'::regtype then 'interval'
                when n.nspname = 'pg_catalog' or t.typcategory = 'A' then
                    format_type(t.oid, coalesce(d.modifier, a.atttypmod))
                else n.nspname || '.' || t.typname end as type,
           not a.attnotnull and not coalesce(d.isnotnull, false) as nullable,
           coalesce(pg_get_expr(f.adbin, f.adrelid), own.typdefault) as expression,
           case when d.oid is not null then own.typname end as domain,
           case when t.typtype = 'e' then t.typname end as enumeration,
           a.attidentity <> '' as identity, a.attgenerated <> '' as computed,
           col_description(a.attrelid, a.attnum) as comment
    from pg_attribute a
    join pg_class c on c.oid = a.attrelid
    join pg_type own on own.oid = a.atttypid
    left join domain d on d.oid = a.atttypid
                          and not exists (select 1 from pg_type b where b.oid = d.base and b.typtype = 'd')
    join pg_type t on t.oid = coalesce(d.base, a.atttypid)
    join pg_namespace n on n.oid = t.typnamespace
    left join pg_attrdef f on f.adrelid = a.attrelid and f.adnum = a.attnum
    where c.relnamespace = $1 and c.relkind in ('r', 'p', 'v', 'm') and not c.relispartition
          and a.attnum > 0 and not a.attisdropped
    order by a.attrelid, a.attnum)";

// A row for each column of an index, null in place of the name of an expression; the primary key's come
// first. Without a word about it, nulls stand at the end that their index's direction gives.
constexpr const char* indexes = R"(
    select i.indrelid as tab, i.indexrelid as index, c.relname as name, i.indisunique as unique,
           i.indisprimary as primary, i.indisexclusion as exclusion, i.indpred is not null as partial,
           i.indnatts > i.indnkeyatts as including, m.amname as method, a.attname as column,
           i.indoption[k.place] & 1 = 1 as descending,
           (i.indoption[k.place] & 2 = 2) <> (i.indoption[k.place] & 1 = 1) as turned,
           coalesce(obj_description(i.indexrelid, 'pg_class'), obj_description(o.oid, 'pg_constraint'))
               as comment
    from pg_index i
    join pg_class c on c.oid = i.indexrelid
    join pg_class t on t.oid = i.indrelid
    join pg_am m on m.oid = c.relam
    cross join lateral generate_series(0, i.indnkeyatts - 1) as k (place)
    left join pg_attribute a on a.attrelid = i.indrelid and a.attnum = i.indkey[k.place] and a.attnum > 0
    left join pg_constraint o on o.conindid = i.indexrelid and o.contype in ('p', 'u', 'x')
    where t.relnamespace = $1 and t.relkind in ('r', 'p') and not t.relispartition
    order by i.indrelid, i.indisprimary desc, i.indexrelid, k.place)";

// A row for each pair of columns. A table of another schema bears the name of that schema.
constexpr const char* keys = R"(
    select o.conrelid as tab, o.oid as key, o.conname as name,
           case when r.relnamespace = t.relnamespace then '' else n.nspname || '.' end || r.relname as reftab,
           o.confdeltype as ondelete, o.confupdtype as onupdate, a.attname as column, b.attname as refcolumn,
           obj_description(o.oid, 'pg_constraint') as comment
    from pg_constraint o
    join pg_class t on t.oid = o.conrelid
    join pg_class r on r.oid = o.confrelid
    join pg_namespace n on n.oid = r.relnamespace
    cross join lateral unnest(o.conkey, o.confkey) with ordinality as pair (own, other, place)
    join pg_attribute a on a.attrelid = o.conrelid and a.attnum = pair.own
    join pg_attribute b on b.attrelid = o.confrelid and b.attnum = pair.other
    where o.contype = 'f' and t.relnamespace = $1 and o.conparentid = 0 and not t.relispartition
    order by o.conrelid, o.oid, pair.place)";

}  // namespace tessel::db::postgres
