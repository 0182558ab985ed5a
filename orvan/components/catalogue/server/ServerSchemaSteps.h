// The steps that make the schema `orvan` of a server: step n leads from version n to version n + 1.
//
// product   one row for each entry. `id` is the number that look-ups know; `id_key` and `place` are what an import
//           finds an entry by; unit_price is in ten-thousandths, NULL for an entry without a price.
// gone      the entries that were removed, which also keeps their ids from being used again.
// state     one row. `revision` grows by one with each transaction that changes entries, and each changed row has the
//           revision of its last change. A transaction keeps the row of `state` locked from its first change to its
//           end, so revisions stand in the order in which transactions end: who has seen revision n has seen all
//           up to n.
// change    one row for each of the last 10,000 revisions, with a stamp that no other change has. A server that was
//           restored from a backup, or took over from one that failed, may have given a revision a second time; a desk
//           tells by the stamp that its copy does not belong to this past.
// incoming  where an import puts its rows, and in incoming_number their numbers, if it may not make temporary tables.
//           Nobody ever sees rows in them.
//
// The triggers do for people who change `product` by plain SQL what an import does by itself for all rows at once;
// an import says so by the setting orvan.import.
#pragma once

#include <array>

namespace orvan {

inline constexpr std::array<const char*, 1> kServerSchemaSteps = {R"(
CREATE SCHEMA IF NOT EXISTS orvan;
CREATE TABLE orvan.state (
    single boolean PRIMARY KEY DEFAULT true CHECK (single),
    version integer NOT NULL,
    revision bigint NOT NULL DEFAULT 0,
    lineage text NOT NULL DEFAULT gen_random_uuid()::text,
    next_number bigint NOT NULL DEFAULT 1,
    language text NOT NULL DEFAULT '',
    source text NOT NULL DEFAULT '',
    changed_at timestamptz NOT NULL DEFAULT now()
);
INSERT INTO orvan.state (version) VALUES (1);
CREATE TABLE orvan.change (
    revision bigint PRIMARY KEY,
    stamp text NOT NULL DEFAULT gen_random_uuid()::text
);
INSERT INTO orvan.change (revision) VALUES (0);
CREATE TABLE orvan.product (
    id integer PRIMARY KEY,
    id_key text NOT NULL,
    place integer NOT NULL,
    own_id text CHECK (own_id <> ''),
    name text NOT NULL DEFAULT '',
    key text NOT NULL DEFAULT '',
    part_num text NOT NULL DEFAULT '',
    barcode text NOT NULL DEFAULT '',
    unit_price bigint CHECK (unit_price >= 0),
    note text NOT NULL DEFAULT '',
    revision bigint NOT NULL,
    CONSTRAINT product_has_name_or_part_num CHECK (name <> '' OR part_num <> ''),
    CONSTRAINT product_id_key UNIQUE (id_key, place)
);
CREATE INDEX product_revision ON orvan.product (revision, id);
CREATE TABLE orvan.gone (
    id integer PRIMARY KEY,
    id_key text NOT NULL,
    name text NOT NULL,
    revision bigint NOT NULL
);
CREATE INDEX gone_revision ON orvan.gone (revision, id);
CREATE INDEX gone_id_key ON orvan.gone (id_key);

-- The key by which an import finds an entry. A long one is shortened, because an index takes 2,700 bytes at most. Its
-- callers have set the search path; and it is no function in SQL, because those take a hundred times as long where the
-- server cannot put them into the statement.
CREATE FUNCTION orvan.key_of(own_id text, part_num text, name text) RETURNS text LANGUAGE plpgsql IMMUTABLE AS $$
DECLARE
    full_key text := CASE WHEN own_id <> '' THEN 'i' || own_id WHEN part_num <> '' THEN 'p' || part_num
                          ELSE 'n' || name END;
BEGIN
    IF octet_length(full_key) <= 500 THEN
        RETURN full_key;
    END IF;
    RETURN left(full_key, 100) || chr(31) || encode(sha256(convert_to(full_key, 'UTF8')), 'hex');
END $$;

CREATE UNLOGGED TABLE orvan.incoming (
    line bigint, own_id text, name text, key text, part_num text, barcode text, unit_price bigint, note text,
    id_key text GENERATED ALWAYS AS (orvan.key_of(own_id, part_num, name)) STORED
);
CREATE UNLOGGED TABLE orvan.incoming_number (line bigint, id integer, fresh boolean);

-- The revision of this transaction. Its first call waits for other transactions that change entries.
CREATE FUNCTION orvan.begin_change() RETURNS bigint LANGUAGE plpgsql SET search_path = '' AS $$
DECLARE
    present bigint := nullif(current_setting('orvan.revision', true), '')::bigint;
BEGIN
    IF present IS NULL THEN
        UPDATE orvan.state SET revision = revision + 1, changed_at = now() RETURNING revision INTO STRICT present;
        INSERT INTO orvan.change (revision) VALUES (present);
        DELETE FROM orvan.change WHERE revision <= present - 10000;
        PERFORM set_config('orvan.revision', present::text, true);
        BEGIN
            PERFORM pg_notify('orvan', present::text);
        EXCEPTION WHEN insufficient_privilege OR undefined_function OR feature_not_supported THEN
            NULL; -- desks then ask now and then
        END;
    END IF;
    RETURN present;
END $$;

-- A number that no entry has had. The setting orvan.next saves changing `state` for each row.
CREATE FUNCTION orvan.new_number() RETURNS integer LANGUAGE plpgsql SET search_path = '' AS $$
DECLARE
    number bigint := coalesce(nullif(current_setting('orvan.next', true), '')::bigint,
                              (SELECT next_number FROM orvan.state));
BEGIN
    WHILE EXISTS (SELECT FROM orvan.product WHERE id = number) OR EXISTS (SELECT FROM orvan.gone WHERE id = number) LOOP
        number := number + 1;
    END LOOP;
    IF number > 2147483647 THEN
        RAISE EXCEPTION 'all numbers of 32 bits are used up';
    END IF;
    PERFORM set_config('orvan.next', (number + 1)::text, true);
    RETURN number;
END $$;

CREATE FUNCTION orvan.before_change() RETURNS trigger LANGUAGE plpgsql SET search_path = '' AS $$
BEGIN
    IF TG_OP = 'TRUNCATE' THEN
        RAISE EXCEPTION 'TRUNCATE does not tell the desks which entries are gone; use DELETE';
    END IF;
    PERFORM orvan.begin_change();
    RETURN NULL;
END $$;

CREATE FUNCTION orvan.complete_row() RETURNS trigger LANGUAGE plpgsql SET search_path = '' AS $$
DECLARE
    was_named text;
    own_number integer;
BEGIN
    NEW.own_id := nullif(btrim(NEW.own_id, E' \t'), '');
    IF NEW.own_id ~ '^-?0*[0-9]{1,10}$' THEN
        IF NEW.own_id::numeric BETWEEN -2147483648 AND 2147483647 THEN
            own_number := NEW.own_id::numeric;
            NEW.own_id := own_number::text; -- without leading zeros, as an import compares it
        END IF;
    END IF;
    NEW.name := btrim(coalesce(NEW.name, ''), E' \t');
    NEW.key := btrim(coalesce(NEW.key, ''), E' \t');
    NEW.part_num := btrim(coalesce(NEW.part_num, ''), E' \t');
    NEW.barcode := btrim(coalesce(NEW.barcode, ''), E' \t');
    NEW.note := coalesce(NEW.note, '');
    NEW.id_key := orvan.key_of(NEW.own_id, NEW.part_num, NEW.name);
    NEW.revision := orvan.begin_change();
    IF TG_OP = 'INSERT' THEN
        IF NEW.id IS NULL THEN
            SELECT min(id) INTO NEW.id FROM orvan.gone WHERE id_key = NEW.id_key HAVING count(*) = 1;
        END IF;
        IF NEW.id IS NULL AND own_number IS NOT NULL
           AND NOT EXISTS (SELECT FROM orvan.product WHERE id = own_number)
           AND NOT EXISTS (SELECT FROM orvan.gone WHERE id = own_number) THEN
            NEW.id := own_number;
        END IF;
        IF NEW.id IS NULL THEN
            NEW.id := orvan.new_number();
        END IF;
        DELETE FROM orvan.gone WHERE id = NEW.id AND id_key = NEW.id_key;
        SELECT name INTO was_named FROM orvan.gone WHERE id = NEW.id;
        IF FOUND THEN
            RAISE EXCEPTION 'the id % was that of another entry, %', NEW.id, was_named;
        END IF;
    ELSIF NEW.id IS DISTINCT FROM OLD.id THEN
        RAISE EXCEPTION 'an entry keeps its id: % cannot become %', OLD.id, NEW.id;
    ELSIF NEW.id_key = OLD.id_key THEN
        RETURN NEW;
    END IF;
    NEW.place := CASE WHEN NEW.own_id IS NOT NULL THEN 0 ELSE
        coalesce((SELECT max(place) + 1 FROM orvan.product WHERE id_key = NEW.id_key AND id <> NEW.id), 0) END;
    RETURN NEW;
END $$;

CREATE FUNCTION orvan.after_insert() RETURNS trigger LANGUAGE plpgsql SET search_path = '' AS $$
BEGIN
    UPDATE orvan.state SET next_number = current_setting('orvan.next', true)::bigint
    WHERE next_number < nullif(current_setting('orvan.next', true), '')::bigint;
    RETURN NULL;
END $$;

CREATE FUNCTION orvan.after_delete() RETURNS trigger LANGUAGE plpgsql SET search_path = '' AS $$
BEGIN
    INSERT INTO orvan.gone SELECT id, id_key, name, (SELECT orvan.begin_change()) FROM removed;
    RETURN NULL;
END $$;

CREATE TRIGGER before_change BEFORE INSERT OR UPDATE OR DELETE OR TRUNCATE ON orvan.product
    FOR EACH STATEMENT EXECUTE FUNCTION orvan.before_change();
CREATE TRIGGER complete_row BEFORE INSERT OR UPDATE ON orvan.product FOR EACH ROW
    WHEN (current_setting('orvan.import', true) IS DISTINCT FROM 'on') EXECUTE FUNCTION orvan.complete_row();
CREATE TRIGGER after_insert AFTER INSERT ON orvan.product
    FOR EACH STATEMENT EXECUTE FUNCTION orvan.after_insert();
CREATE TRIGGER after_delete AFTER DELETE ON orvan.product REFERENCING OLD TABLE AS removed
    FOR EACH STATEMENT EXECUTE FUNCTION orvan.after_delete();
)"};

/// Roles belong to all databases of a server; another one may have made them.
inline constexpr const char* kServerRoles = R"(
DO $$ BEGIN
    IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'orvan_reader') THEN
        CREATE ROLE orvan_reader NOLOGIN;
    END IF;
    IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'orvan_importer') THEN
        CREATE ROLE orvan_importer NOLOGIN;
    END IF;
    IF NOT pg_has_role('orvan_importer', 'orvan_reader', 'MEMBER') THEN
        GRANT orvan_reader TO orvan_importer;
    END IF;
END $$;
)";

inline constexpr const char* kServerGrants = R"(
GRANT USAGE ON SCHEMA orvan TO orvan_reader, orvan_importer;
GRANT SELECT ON orvan.state, orvan.change, orvan.product, orvan.gone TO orvan_reader;
GRANT SELECT, INSERT, UPDATE, DELETE ON orvan.product, orvan.gone, orvan.change, orvan.incoming,
    orvan.incoming_number TO orvan_importer;
GRANT SELECT, UPDATE ON orvan.state TO orvan_importer;
)";

} // namespace orvan
