// The statements by which an import changes a server's catalogue. {rows} is the table with the list's entries,
// {numbers} the one with their numbers; both are empty at first.
//
// Everything is done for all rows at once, because a statement for each row takes many times as long.
#pragma once

#include <array>

namespace orvan {

/// With temporary tables. The rows' keys are made while they are copied.
inline constexpr const char* kServerImportTables = R"(
CREATE TEMPORARY TABLE orvan_rows (
    line bigint, own_id text, name text, key text, part_num text, barcode text, unit_price bigint, note text,
    id_key text GENERATED ALWAYS AS (orvan.key_of(own_id, part_num, name)) STORED
) ON COMMIT DROP;
CREATE TEMPORARY TABLE orvan_numbers (line bigint, id integer, fresh boolean) ON COMMIT DROP;
)";

/// Rows whose own id an earlier row has.
inline constexpr const char* kServerImportTwice = R"(
SELECT line FROM (SELECT line, row_number() OVER (PARTITION BY own_id ORDER BY line) AS nth
                  FROM {rows} WHERE own_id IS NOT NULL) AS shared
WHERE nth > 1 ORDER BY line
)";

inline constexpr const char* kServerImportRemoveTwice = R"(
DELETE FROM {rows} WHERE line IN (
    SELECT line FROM (SELECT line, row_number() OVER (PARTITION BY own_id ORDER BY line) AS nth
                      FROM {rows} WHERE own_id IS NOT NULL) AS shared WHERE nth > 1)
)";

/// These give each row its number. Of entries with the same key, those with the same name keep theirs.
inline constexpr std::array kServerImportNumbering = {
    R"(
INSERT INTO {numbers}
SELECT listed.line, known.id, false
FROM (SELECT line, id_key, name, row_number() OVER (PARTITION BY id_key, name ORDER BY line) AS nth
      FROM {rows}) AS listed
JOIN (SELECT id, id_key, name, row_number() OVER (PARTITION BY id_key, name ORDER BY id) AS nth
      FROM (SELECT id, id_key, name FROM orvan.product
            UNION ALL SELECT id, id_key, name FROM orvan.gone) AS every
      WHERE id_key IN (SELECT id_key FROM {rows})) AS known
USING (id_key, name, nth)
)",
    // A key that one entry alone has had: the entry has a new name.
    R"(
INSERT INTO {numbers}
SELECT DISTINCT ON (listed.id_key) listed.line, known.id, false
FROM {rows} AS listed
JOIN (SELECT id_key, min(id) AS id
      FROM (SELECT id, id_key FROM orvan.product UNION ALL SELECT id, id_key FROM orvan.gone) AS every
      WHERE id_key IN (SELECT id_key FROM {rows} AS r
                       WHERE NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.line = r.line))
      GROUP BY id_key HAVING count(*) = 1) AS known USING (id_key)
WHERE NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.line = listed.line)
  AND NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.id = known.id)
ORDER BY listed.id_key, listed.line
)",
    // An own id that is a number, where nobody has had it.
    R"(
INSERT INTO {numbers}
SELECT line, number, false
FROM (SELECT line, CASE WHEN own_id ~ '^(0|-?[1-9][0-9]{0,9})$' THEN own_id::bigint END AS number
      FROM {rows} AS r WHERE NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.line = r.line)) AS own
WHERE number BETWEEN -2147483648 AND 2147483647
  AND NOT EXISTS (SELECT FROM orvan.product AS p WHERE p.id = number)
  AND NOT EXISTS (SELECT FROM orvan.gone AS g WHERE g.id = number)
)"};

/// How many rows have no number yet.
inline constexpr const char* kServerImportUnnumbered = R"(
SELECT count(*) FROM {rows} AS r WHERE NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.line = r.line)
)";

/// How many of the numbers from the next one on are used.
inline constexpr const char* kServerImportUsed = R"(
SELECT (SELECT count(*) FROM orvan.product WHERE id >= next_number)
     + (SELECT count(*) FROM orvan.gone WHERE id >= next_number)
     + (SELECT count(*) FROM {numbers} WHERE id >= next_number)
FROM orvan.state
)";

/// Gives $1 rows the next free numbers, of which $2 may be used.
inline constexpr const char* kServerImportFresh = R"(
INSERT INTO {numbers}
WITH fresh AS (
    SELECT line, row_number() OVER (ORDER BY line) AS nth
    FROM {rows} AS r WHERE NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.line = r.line)
), free AS (
    SELECT number, row_number() OVER (ORDER BY number) AS nth
    FROM (SELECT next_number FROM orvan.state) AS state,
         generate_series(next_number, least(2147483647, next_number - 1 + $1::bigint + $2::bigint)) AS number
    WHERE NOT EXISTS (SELECT FROM orvan.product AS p WHERE p.id = number)
      AND NOT EXISTS (SELECT FROM orvan.gone AS g WHERE g.id = number)
      AND NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.id = number)
)
SELECT line, number, true FROM fresh JOIN free USING (nth)
)";

inline constexpr const char* kServerImportChange = R"(
UPDATE orvan.product AS p
SET own_id = r.own_id, name = r.name, key = r.key, part_num = r.part_num, barcode = r.barcode,
    unit_price = r.unit_price, note = r.note, revision = $1
FROM {rows} AS r JOIN {numbers} AS n ON n.line = r.line AND NOT n.fresh
WHERE p.id = n.id
  AND (p.own_id, p.name, p.key, p.part_num, p.barcode, p.unit_price, p.note)
      IS DISTINCT FROM (r.own_id, r.name, r.key, r.part_num, r.barcode, r.unit_price, r.note)
)";

inline constexpr const char* kServerImportRemove = R"(
DELETE FROM orvan.product AS p WHERE NOT EXISTS (SELECT FROM {numbers} AS n WHERE n.id = p.id)
)";

inline constexpr const char* kServerImportAdd = R"(
INSERT INTO orvan.product
    (id, id_key, place, own_id, name, key, part_num, barcode, unit_price, note, revision)
SELECT n.id, r.id_key,
       CASE WHEN r.own_id IS NOT NULL THEN 0
            ELSE coalesce((SELECT max(place) + 1 FROM orvan.product AS same WHERE same.id_key = r.id_key), 0)
                 + row_number() OVER (PARTITION BY r.id_key ORDER BY r.line) - 1 END,
       r.own_id, r.name, r.key, r.part_num, r.barcode, r.unit_price, r.note, $1
FROM {rows} AS r JOIN {numbers} AS n ON n.line = r.line
WHERE NOT EXISTS (SELECT FROM orvan.product AS p WHERE p.id = n.id)
)";

/// Entries that were gone, and are back.
inline constexpr const char* kServerImportReturn = R"(
DELETE FROM orvan.gone AS g USING {numbers} AS n WHERE g.id = n.id
)";

inline constexpr const char* kServerImportState = R"(
UPDATE orvan.state
SET source = $1, language = CASE WHEN $2 = '' THEN language ELSE $2 END,
    next_number = greatest(next_number, (SELECT max(id)::bigint + 1 FROM {numbers} WHERE fresh))
)";

} // namespace orvan
