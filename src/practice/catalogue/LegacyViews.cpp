// The older catalogue of each database, which tools of every age still read.
#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

// A text in rows of at most 4000 characters, numbered from 1.
#define TEXT_CHUNKS                                                                                          \
    "WITH RECURSIVE source(id, number, body, encrypted) AS ("                                                \
    "SELECT m.object_id, 1, m.definition, m.is_encrypted FROM q_module m UNION ALL "                         \
    "SELECT d.object_id, 0, d.definition, 0 FROM q_default d UNION ALL "                                     \
    "SELECT c.object_id, 0, c.definition, 0 FROM q_check c UNION ALL "                                       \
    "SELECT k.object_id, k.column_id, k.definition, 0 FROM q_column k WHERE k.is_computed = 1), "            \
    "chunk(id, number, colid, part, rest, encrypted) AS ("                                                   \
    "SELECT s.id, s.number, 1, substr(s.body, 1, 4000), substr(s.body, 4001), s.encrypted FROM source s "    \
    "JOIN q_object o ON o.object_id = s.id WHERE o.database_id = {db} UNION ALL "                            \
    "SELECT id, number, colid + 1, substr(rest, 1, 4000), substr(rest, 4001), encrypted FROM chunk WHERE "   \
    "rest <> '') "

constexpr ViewDefinition rows[] = {
    {"dbo", "sysobjects",
     "!name sysname, !id int, !xtype char(2), !uid smallint, !info smallint, !status int, !base_schema_ver "
     "int, "
     "!replinfo int, !parent_obj int, !crdate datetime, !ftcatid smallint, !schema_ver int, "
     "!stats_schema_ver int, "
     "type char(2), userstat smallint, sysstat smallint, indexdel smallint, refdate datetime, version int, "
     "deltrig int, "
     "instrig int, updtrig int, seltrig int, category int, cache smallint",
     "SELECT o.name, o.object_id, substr(o.type || ' ', 1, 2), o.schema_id, 0, 0, 0, 0, o.parent_object_id, "
     "o.create_date, 0, 0, 0, substr(CASE o.type WHEN 'PK' THEN 'K' WHEN 'UQ' THEN 'K' ELSE o.type END || ' "
     "', 1, 2), "
     "1, CASE o.type WHEN 'U' THEN 3 WHEN 'V' THEN 2 WHEN 'P' THEN 4 WHEN 'TR' THEN 8 ELSE 0 END, 0, "
     "o.create_date, 0, "
     "coalesce({trigger:3}, 0), coalesce({trigger:1}, 0), coalesce({trigger:2}, 0), 0, "
     "CASE WHEN o.is_ms_shipped THEN 2 ELSE 0 END, 0 "
     "FROM q_object o WHERE o.database_id = {db} AND o.type NOT IN ('AT', 'TT')"},
    {"dbo", "syscolumns",
     "name sysname, !id int, !xtype tinyint, !typestat tinyint, !xusertype smallint, !length smallint, "
     "!xprec tinyint, "
     "!xscale tinyint, !colid smallint, !xoffset smallint, !bitpos tinyint, !reserved tinyint, !colstat "
     "smallint, "
     "!cdefault int, !domain int, !number smallint, !colorder smallint, autoval varbinary(8000), !offset "
     "smallint, "
     "collationid int, !language int, !status tinyint, !type tinyint, usertype smallint, printfmt "
     "varchar(255), "
     "prec smallint, scale int, iscomputed int, isoutparam int, isnullable int, collation sysname",
     "SELECT c.name, c.object_id, c.system_type_id, 0, c.user_type_id, c.max_length, c.precision, c.scale, "
     "c.column_id, "
     "0, 0, 0, c.is_identity + 4 * c.is_computed, "
     "coalesce((SELECT d.object_id FROM q_default d WHERE d.parent_object_id = c.object_id AND "
     "d.parent_column_id = c.column_id), c.default_object_id), c.rule_object_id, 0, c.column_id, NULL, 0, "
     "CASE WHEN c.collation_name IS NULL THEN NULL ELSE 872468488 END, 0, "
     "8 * c.is_nullable + 128 * c.is_identity, {legacy_type:c.system_type_id}, {usertype:c}, NULL, {prec:c}, "
     "CASE WHEN c.collation_name IS NOT NULL OR c.system_type_id IN (165, 173, 34, 36, 98, 189, 241, 58, 61, "
     "40) "
     "THEN NULL ELSE c.scale END, c.is_computed, 0, c.is_nullable, c.collation_name "
     "FROM q_column c JOIN q_object o ON o.object_id = c.object_id WHERE o.database_id = {db} "
     "AND o.type IN ('U', 'V', 'IF', 'TF') UNION ALL "
     "SELECT p.name, p.object_id, p.system_type_id, 0, p.user_type_id, p.max_length, p.precision, p.scale, "
     "p.parameter_id, 0, 0, 0, 0, 0, 0, 1, p.parameter_id, NULL, 0, NULL, 0, 8 + 64 * p.is_output, "
     "{legacy_type:p.system_type_id}, {usertype:p}, NULL, {prec:p}, p.scale, 0, p.is_output, 1, NULL "
     "FROM q_parameter p JOIN q_object o ON o.object_id = p.object_id WHERE o.database_id = {db}"},
    {"dbo", "sysusers",
     "!uid smallint, !status smallint, name sysname, sid varbinary(85), roles varbinary(2048), !createdate "
     "datetime, "
     "!updatedate datetime, !altuid smallint, password varbinary(256), !gid smallint, environ varchar(255), "
     "hasdbaccess int, islogin int, isntname int, isntgroup int, isntuser int, issqluser int, isaliased int, "
     "issqlrole int, isapprole int",
     "SELECT p.principal_id, CASE WHEN p.type <> 'R' AND p.principal_id NOT IN (2, 3, 4) THEN 2 ELSE 0 END, "
     "p.name, "
     "{principal_sid}, NULL, p.create_date, p.modify_date, CASE WHEN p.type = 'R' THEN 1 ELSE 0 END, "
     "NULL, "
     "CASE WHEN p.type = 'R' THEN p.principal_id ELSE 0 END, NULL, p.type <> 'R' AND p.principal_id NOT IN "
     "(2, 3, 4), "
     "p.type <> 'R', p.type = 'U', 0, p.type = 'U', p.type = 'S', 0, p.type = 'R', 0 "
     "FROM q_principal p WHERE p.database_id = {db}"},
    {"dbo", "sysmembers", "!memberuid smallint, !groupuid smallint",
     "SELECT member_principal_id, role_principal_id FROM q_role_member WHERE database_id = {db}"},
    {"dbo", "syscomments",
     "!id int, !number smallint, !colid smallint, !status smallint, ctext varbinary(8000), !texttype "
     "smallint, "
     "!language smallint, !encrypted bit, !compressed bit, text nvarchar(4000)",
     TEXT_CHUNKS
     "SELECT id, number, colid, 0, NULL, 2, 0, encrypted, 0, CASE WHEN encrypted THEN NULL ELSE part END "
     "FROM chunk"},
    {"dbo", "sysindexes",
     "!id int, !status int, first binary(6), !indid smallint, root binary(6), !minlen smallint, !keycnt "
     "smallint, "
     "!groupid smallint, !dpages int, !reserved int, !used int, !rowcnt bigint, !rowmodctr int, !reserved3 "
     "tinyint, "
     "!reserved4 tinyint, !xmaxlen smallint, !maxirow smallint, !OrigFillFactor tinyint, !StatVersion "
     "tinyint, "
     "!reserved2 int, FirstIAM binary(6), !impid smallint, !lockflags smallint, !pgmodctr int, keys "
     "varbinary(1088), "
     "name sysname, statblob image, !maxlen int, rows int",
     "SELECT i.object_id, 2 * i.is_unique + 16 * i.is_clustered + 2048 * i.is_primary_key + "
     "4096 * i.is_unique_constraint + i.ignore_dup_key, NULL, i.index_id, NULL, 0, "
     "(SELECT count(*) FROM q_index_column k WHERE k.object_id = i.object_id AND k.index_id = i.index_id AND "
     "k.is_included_column = 0), 1, 1, 1, 1, quillon_row_count(i.object_id), 0, 0, 0, 0, 0, i.fill_factor, "
     "0, "
     "0, NULL, 0, 0, 0, NULL, i.name, NULL, 8000, quillon_row_count(i.object_id) FROM q_index i JOIN "
     "q_object o ON o.object_id = i.object_id "
     "WHERE o.database_id = {db} AND o.type = 'U' UNION ALL "
     "SELECT o.object_id, 0, NULL, 0, NULL, 0, 0, 1, 1, 1, 1, quillon_row_count(o.object_id), 0, 0, 0, 0, 0, "
     "0, "
     "0, 0, NULL, 0, 0, 0, NULL, NULL, NULL, 8000, quillon_row_count(o.object_id) FROM q_object o WHERE "
     "o.database_id = {db} AND o.type = 'U' AND NOT "
     "EXISTS "
     "(SELECT 1 FROM q_index i WHERE i.object_id = o.object_id AND i.is_clustered = 1)"},
    {"dbo", "sysindexkeys", "!id int, !indid smallint, !colid smallint, !keyno smallint",
     "SELECT k.object_id, k.index_id, k.column_id, k.key_ordinal FROM q_index_column k "
     "JOIN q_object o ON o.object_id = k.object_id WHERE o.database_id = {db} AND k.is_included_column = 0"},
    {"dbo", "sysforeignkeys",
     "!constid int, !fkeyid int, !rkeyid int, !fkey smallint, !rkey smallint, !keyno smallint",
     "SELECT f.constraint_object_id, f.parent_object_id, f.referenced_object_id, f.parent_column_id, "
     "f.referenced_column_id, f.constraint_column_id FROM q_foreign_key_column f "
     "JOIN q_object o ON o.object_id = f.constraint_object_id WHERE o.database_id = {db}"},
    {"dbo", "sysreferences",
     "!constid int, !fkeyid int, !rkeyid int, !rkeyindid smallint, !keycnt smallint, forkeys "
     "varbinary(32), refkeys varbinary(32), !fkeydbid smallint, !rkeydbid smallint, !fkey1 smallint, "
     "!fkey2 smallint, !fkey3 smallint, !fkey4 smallint, !fkey5 smallint, !fkey6 smallint, !fkey7 "
     "smallint, !fkey8 smallint, !fkey9 smallint, !fkey10 smallint, !fkey11 smallint, !fkey12 "
     "smallint, !fkey13 smallint, !fkey14 smallint, !fkey15 smallint, !fkey16 smallint, !rkey1 "
     "smallint, !rkey2 smallint, !rkey3 smallint, !rkey4 smallint, !rkey5 smallint, !rkey6 smallint, "
     "!rkey7 smallint, !rkey8 smallint, !rkey9 smallint, !rkey10 smallint, !rkey11 smallint, !rkey12 "
     "smallint, !rkey13 smallint, !rkey14 smallint, !rkey15 smallint, !rkey16 smallint",
     "SELECT f.object_id, f.parent_object_id, f.referenced_object_id, f.key_index_id, (SELECT "
     "count(*) FROM q_foreign_key_column c WHERE c.constraint_object_id = f.object_id), NULL, NULL, "
     "{db}, {db}, {keys:parent_column_id}, {keys:referenced_column_id} FROM q_foreign_key f JOIN "
     "q_object o ON o.object_id = f.object_id WHERE o.database_id = {db}"},
    {"dbo", "sysconstraints",
     "!constid int, !id int, !colid smallint, spare1 tinyint, status int, actions int, error int",
     "SELECT o.object_id, o.parent_object_id, coalesce((SELECT d.parent_column_id FROM q_default d "
     "WHERE d.object_id = o.object_id), (SELECT c.parent_column_id FROM q_check c WHERE c.object_id = "
     "o.object_id), 0), "
     "0, CASE o.type WHEN 'PK' THEN 1 WHEN 'UQ' THEN 2 WHEN 'F' THEN 3 WHEN 'C' THEN 4 ELSE 5 END, 0, 0 "
     "FROM q_object o WHERE o.database_id = {db} AND o.parent_object_id <> 0 AND o.type IN ('PK', 'UQ', 'F', "
     "'C', 'D')"},
    {"dbo", "sysdepends",
     "!id int, !depid int, !number smallint, !depnumber smallint, !status smallint, !deptype tinyint, "
     "!depdbid smallint, !depsiteid smallint, !selall bit, !resultobj bit, !readobj bit",
     "{references} SELECT id, target, 0, 0, 0, 0, 0, 0, 0, is_changed, NOT is_changed FROM r WHERE target IS "
     "NOT NULL"},
    {"dbo", "sysfiles",
     "!fileid smallint, !groupid smallint, !size int, !maxsize int, !growth int, !status int, !perf int, "
     "!name sysname, "
     "!filename nvarchar(260)",
     "SELECT 1, 1, 1024, -1, 1024, 2, 0, d.name, d.name || '.mdf' FROM q_database d WHERE d.database_id = "
     "{db} "
     "UNION ALL SELECT 2, 0, 128, -1, 128, 66, 0, d.name || '_log', d.name || '_log.ldf' FROM q_database d "
     "WHERE d.database_id = {db}"},
    {"dbo", "sysfilegroups", "!groupid smallint, !allocpolicy smallint, !status int, !groupname sysname",
     "SELECT 1, 0, 16, 'PRIMARY'"},
};

} // namespace

std::span<const ViewDefinition> LegacyViews() {
    return rows;
}

} // namespace quillon::practice
