'use strict';
// The statements, and pieces of statements, that stand as text literals in the C++ sources.

const fs = require('node:fs');
const path = require('node:path');

// Rooms with statements, and the files in them whose statements are an engine's own and never reach another one.
const rooms = ['app', 'common', 'data', 'demo', 'forms', 'platform', 'reports', 'sql', 'tools', 'ui'];
const ownSql = [
    ['sql/Catalogue.cpp', 'asks each engine for its catalogue, in its own SQL'],
    ['tools/quorvane-admin/EngineChecks.cpp', 'asks each engine about itself, in its own SQL'],
    ['platform/quorvane32/core/', 'engines ask their own database for its catalogue, in its own SQL'],
    ['demo/SqliteTarget.cpp', 'loads the embedded database through its C interface'],
    ['demo/ScaleData.cpp', 'loads the embedded database through its C interface'],
];

const statementStart = /^\s*(select|insert|update|delete|create|alter|drop|truncate|merge|from|left join|where|and|or|group by|order by|union|values|set(?!\s+transaction))\s/i;
const token = /\/\/[^\n]*|\/\*[\s\S]*?\*\/|"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)*'/g;
const escapes = { n: '\n', r: '\r', t: '\t', 0: '\0' };

function unescaped(literal) {
    return literal.slice(1, -1).replace(/\\(.)/g, (_, letter) => escapes[letter] ?? letter);
}

/** The texts of a source, adjacent literals joined as the compiler does. */
function textsOf(source) {
    const texts = [];
    let end = -1;
    for (const match of source.matchAll(token)) {
        if (!match[0].startsWith('"'))
            continue;
        const between = end < 0 ? 'start' : source.slice(end, match.index).replace(token, '');
        if (/^\s*(u8?|L)?$/.test(between))
            texts[texts.length - 1] += unescaped(match[0]);
        else
            texts.push(unescaped(match[0]));
        end = match.index + match[0].length;
    }
    return texts;
}

/** A pattern for what the text becomes once its placeholders ($Name$, %1) are filled. */
function patternOf(text) {
    const fixed = text.split(/\$\w+\$|%\d/).map((piece) => piece.replace(/[.*+?^${}()|[\]\\]/g, '\\$&'));
    return new RegExp(fixed.join('[\\s\\S]*?'));
}

/** [{ file, text, pattern, own }] of all rooms; `own` for an engine's own SQL. */
function sourceStatements(root) {
    const found = [];
    for (const room of rooms)
        for (const name of fs.readdirSync(path.join(root, room), { recursive: true })) {
            const file = path.posix.join(room, name.split(path.sep).join('/'));
            if (!/\.(cpp|h)$/.test(file))
                continue;
            const own = ownSql.some(([place]) => file.startsWith(place));
            for (const text of textsOf(fs.readFileSync(path.join(root, file), 'utf8')))
                if (statementStart.test(text))
                    found.push({ file, text, pattern: patternOf(text), own });
        }
    return found;
}

module.exports = { sourceStatements, textsOf, patternOf };
