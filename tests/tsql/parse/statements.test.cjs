'use strict';
// Every statement that the program sends, and the tables of SQL Server, are Transact-SQL. Arguments come in the
// environment: STATEMENT_FILE (a JSON array with one text a line) and PROJECT_FOLDER.

const assert = require('node:assert');
const fs = require('node:fs');
const path = require('node:path');
const test = require('node:test');
const { problemOf, problemOfScript } = require('./tsql.cjs');
const { sourceStatements, textsOf, patternOf } = require('./sources.cjs');

const root = process.env.PROJECT_FOLDER;
const sent = fs.readFileSync(process.env.STATEMENT_FILE, 'utf8').trim().split('\n').map((line) => JSON.parse(line)[0]);
const inSources = sourceStatements(root);
const own = new Set(inSources.filter((statement) => statement.own).map(({ text }) => text));
const distinct = [...new Set(sent)].filter((text) => !own.has(text));

function assertNone(problems) {
    assert.ok(problems.length === 0, problems.join('\n'));
}

test('every statement of the program is one statement of Transact-SQL', (t) => {
    t.diagnostic(`${distinct.length} distinct statements parsed, of ${sent.length} sent`);
    assert.ok(distinct.length > 100);
    assertNone(distinct.map((text) => [problemOf(text), text]).filter(([problem]) => problem !== null)
        .map(([problem, text]) => `${problem}: ${text}`));
});

test('every statement that stands in the sources was sent', (t) => {
    const templates = inSources.filter((statement) => !statement.own);
    t.diagnostic(`${templates.length} statements and pieces of statements in the sources`);
    assert.ok(templates.length > 50);
    assertNone(templates.filter(({ pattern }) => !distinct.some((text) => pattern.test(text)))
        .map(({ file, text }) => `${file}: ${text}`));
});

test('what is asked of SQL Server alone is Transact-SQL, too', (t) => {
    const asked = [...own].filter((text) => /\bsys\.|INFORMATION_SCHEMA|SERVERPROPERTY|DB_NAME/.test(text));
    t.diagnostic(`${asked.length} statements of SQL Server's own catalogue`);
    assert.ok(asked.length > 0);
    assertNone(asked.map((text) => [problemOf(text), text]).filter(([problem]) => problem !== null)
        .map(([problem, text]) => `${problem}: ${text}`));
});

test('the scripts of the tables are Transact-SQL', () => {
    const folder = path.join(root, 'sql', 'sqlserver');
    const scripts = fs.readdirSync(folder, { recursive: true }).filter((name) => name.endsWith('.sql'));
    assert.ok(scripts.length >= 2);
    assertNone(scripts.map((name) => [name, problemOfScript(fs.readFileSync(path.join(folder, name), 'utf8'))])
        .filter(([, problem]) => problem !== null).map((pair) => pair.join(': ')));
});

const refused = [
    'SELECT a FROM b LIMIT 1',
    'SELECT a FROM b OFFSET 2',
    'SELECT a FROM b FETCH FIRST 1 ROWS ONLY',
    'SELECT a FROM b WHERE (c = 1',
    'SELECT a FROM b WHERE c = 1)',
    'SELECT a FROM b; DELETE FROM c',
    'SELECT a FROM b SELECT c FROM d',
    "SELECT a FROM b WHERE c = 'x",
    "SELECT a FROM b WHERE c = 'O'Hara'",
    'SELECT a,, b FROM c',
    'SELECT a FROM b WHERE',
    'SELECT a FROM b LEFT JOIN c',
    'SELECT a FROM b ORDER c',
    'SELECT a FROM (SELECT b FROM c)',
    'SELECT a || b FROM c',
    'SELECT a::int FROM b',
    "SELECT a FROM b WHERE c ILIKE 'x'",
    'SELECT a FROM b WHERE c = true',
    'SELECT length(a) FROM b',
    'SELECT ifnull(a, 0) FROM b',
    'UPDATE a SET b = 1, WHERE c = 1',
    'INSERT INTO a (b) VALUES (1',
    'INSERT OR REPLACE INTO a (b) VALUES (1)',
    'DELETE FROM',
    'DELETE FROM a RETURNING b',
    'CREATE TABLE a (b text) WITHOUT ROWID',
    'CREATE TABLE a (b bigint GENERATED ALWAYS AS IDENTITY)',
    'CREATE EXTENSION citext',
    'DROPTABLES',
    '',
];
for (const text of refused)
    test(`refused: ${text}`, () => assert.notStrictEqual(problemOf(text), null));

test('a missing statement is noticed, a sent one found', () => {
    const [text] = textsOf('f(u"SELECT a " // why\n  u"FROM b WHERE c = \'$Codigo$\' and d = %1");');
    assert.strictEqual(text, "SELECT a FROM b WHERE c = '$Codigo$' and d = %1");
    assert.ok(patternOf(text).test("SELECT a FROM b WHERE c = 'x' and d = 1"));
    assert.ok(!patternOf(text).test("SELECT a FROM b WHERE e = 'x' and d = 1"));
});
