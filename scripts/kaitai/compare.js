// Compiles docs/ktl.ksy, reads KTL files with the reader that comes out, and holds every field of every item against
// `ktl show --json` of the same file.
//
//     node compare.js KTL FOLDER    # the program, and a folder of exports, into which the odd files go too
'use strict';

const assert = require('assert');
const { spawnSync } = require('child_process');
const fs = require('fs');
const path = require('path');
const compiler = require('kaitai-struct-compiler');
const KaitaiStream = require('kaitai-struct/KaitaiStream');
const yaml = require('yaml');
const oddFiles = require('./oddFiles.js');

const docs = path.join(__dirname, '../../docs');
const widths = { u1: 1, u2: 2, u4: 4, s4: 4 };
const largestOutput = 1 << 30;

/** A name of the description as the reader has it. */
function camelCase(id) {
    return id.replace(/_([a-z0-9])/g, (_, letter) => letter.toUpperCase());
}

/** Fields of a type that have a number or a list of them, under the names of the page. */
function numberFields(type) {
    return (type.seq || []).filter((field) => field['-orig-id'] && field.type in widths);
}

/** The fields of an object of the reader, under the names of the page. */
function fieldsOf(type, object) {
    return Object.fromEntries(numberFields(type).map((field) => [field['-orig-id'], object[camelCase(field.id)]]));
}

const hex = (bytes) => Buffer.from(bytes || []).toString('hex');

/** What an item shows that is too short for its own head: fields that are there whole, and the rest. */
function cutItem(type, bytes) {
    const buffer = Buffer.from(bytes);
    const fields = {};
    let offset = 0;
    for (const field of numberFields(type)) {
        const width = widths[field.type];
        const count = field['repeat-expr'] || 1;
        if (offset + width * count > buffer.length) break;
        const read = field.type.startsWith('s') ? buffer.readIntLE : buffer.readUIntLE;
        const numbers = Array.from({ length: count }, (_, index) => read.call(buffer, offset + index * width, width));
        fields[field['-orig-id']] = field.repeat ? numbers : numbers[0];
        offset += width * count;
    }
    return { fields, bytes: hex(buffer.subarray(offset)) };
}

/** Values of a CoE item, and its bytes without a meaning. */
function tailOf(body) {
    const words = body.tail || [];
    const fill = words.length > 0 && words[words.length - 1].beginsFill ? [words[words.length - 1]] : [];
    const values = words.slice(0, words.length - fill.length).map((word) => word.value);
    const fillBytes = Buffer.alloc(4 * fill.length);
    fill.forEach((word) => fillBytes.writeUInt32LE(word.value));
    return { values, bytes: hex(fillBytes) + hex(body.rest) };
}

/** An item of the reader in the form of the JSON. */
function itemOf(ksy, item) {
    const cases = ksy.types.item.seq[2].type.cases;
    const entry = ksy.enums.item_code[item.itemType];
    const type = ksy.types[(entry && cases[`item_code::${entry.id}`]) || cases._];
    const head = fieldsOf(ksy.types.item, item);
    const place = { offset: item.offset, type: item.itemType, size: item.size, present: item.present };
    if (item.cutBody !== undefined) {
        const cut = cutItem(type, item.cutBody);
        const fields = { ...head, ...cut.fields };
        return { ...place, fields, records: [], values: [], words: [], text: '', bytes: cut.bytes };
    }
    const { records = [], words = [], text = '' } = item.body;
    const ofRecords = type.seq.find((field) => field.id === 'records');
    return {
        ...place,
        fields: { ...head, ...fieldsOf(type, item.body) },
        records: records.map((record) => fieldsOf(ksy.types[ofRecords.type], record)),
        words,
        text,
        ...tailOf(item.body),
    };
}

/** An item of the JSON, its name left out and its bytes without a meaning in one text. */
function expectedItem({ name, fill, rest, ...item }) {
    return { ...item, bytes: (fill + rest).replace(/ /g, '') };
}

/** Whether a file ends where an item ends, and that one is an End item. */
function isComplete(file) {
    const last = (file.items || []).slice(-1)[0];
    if (file.rest.length > 0 || last === undefined || !last.isPossible) return false;
    return last.itemType === 0 && last.present === last.size;
}

/** The enumerations are those of the header for firmware, name by name. */
function checkCodes(ksy) {
    const header = fs.readFileSync(path.join(docs, 'ktl_format.h'), 'utf8');
    const declared = [...header.matchAll(/^ {4}(KTL_\w+) = (-?\d+)/gm)].map(([, name, value]) => `${name} = ${value}`);
    const described = Object.values(ksy.enums).flatMap((values) =>
        Object.entries(values).map(([value, entry]) => `${entry['-orig-id']} = ${value}`));
    assert.deepStrictEqual(described.sort(), declared.sort());
}

async function readerOf(ksy) {
    for (const language of compiler.languages) await compiler.compile(language, ksy, null, false);
    const sources = Object.values(await compiler.compile('javascript', ksy, null, false));
    assert.strictEqual(sources.length, 1);
    const exported = { exports: {} };
    new Function('exports', 'module', 'require', sources[0])(exported.exports, exported, require);
    return exported.exports.Ktl || exported.exports;
}

/** What `ktl show --json` tells of all files; those with an odd end give an exit status of 2. */
function shownFiles(ktl, names) {
    const shown = spawnSync(ktl, ['show', '--json', ...names], { maxBuffer: largestOutput, encoding: 'utf8' });
    assert.ok(shown.error === undefined && [0, 2].includes(shown.status), `ktl show: ${shown.error || shown.stderr}`);
    const { files } = JSON.parse(shown.stdout);
    assert.deepStrictEqual(files.map((file) => file.file), names);
    return files;
}

/** @return the number of items of a file that reads as it is shown */
function checkFile(ksy, Ktl, shown) {
    try {
        const file = new Ktl(new KaitaiStream(fs.readFileSync(shown.file)));
        const read = (file.items || []).filter((item) => item.isPossible).map((item) => itemOf(ksy, item));
        assert.deepStrictEqual(read, shown.items.map(expectedItem));
        assert.strictEqual(isComplete(file), shown.complete);
        return read.length;
    } catch (error) {
        throw new Error(`${shown.file}: ${error.message}`);
    }
}

async function main([ktl, folder]) {
    const ksy = yaml.parse(fs.readFileSync(path.join(docs, 'ktl.ksy'), 'utf8'));
    checkCodes(ksy);
    const Ktl = await readerOf(ksy);
    for (const [name, bytes] of Object.entries(oddFiles(Object.keys(ksy.enums.item_code).map(Number))))
        fs.writeFileSync(path.join(folder, `odd-${name}.ktl`), bytes);
    const names = fs.readdirSync(folder).filter((name) => name.endsWith('.ktl')).map((name) => path.join(folder, name));
    const items = shownFiles(ktl, names).reduce((count, shown) => count + checkFile(ksy, Ktl, shown), 0);
    console.log(`${names.length} files with ${items} items: every field as ktl show has it.`);
}

main(process.argv.slice(2)).catch((error) => {
    console.error(error.message || error);
    process.exitCode = 1;
});
