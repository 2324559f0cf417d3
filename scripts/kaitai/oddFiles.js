// KTL files that no export gives: all items with all fields, files that are cut, sizes and counts that announce more
// than there is, and the odd rules of CoE and Slot items.
'use strict';

const endCode = 0;
const general = 40000;
const fmmu = 40014;
const coe = 40006;
const slot = 40007;
const moreInfo = 40016;
const unknown = 40999;

/** Number as four bytes, the lowest one first. */
function le32(number) {
    const bytes = Buffer.alloc(4);
    bytes.writeUInt32LE(number >>> 0);
    return bytes;
}

/** An item that announces what it has, or another size. */
function item(type, content, announced = 8 + content.length) {
    return Buffer.concat([le32(type), le32(announced), content]);
}

/** Bytes that differ from their neighbours, with high bits among them; letters for a text. */
function pattern(length, isText = false) {
    return Buffer.from({ length }, (_, index) => (isText ? 0x41 + (index % 26) : (index * 37 + 11) % 256));
}

const end = item(endCode, le32(0));
const device = item(general, pattern(44));

/** A startup command of 12 bytes. */
function command(isCompleteAccess, dataBytes) {
    return Buffer.from([2, 0, 0x12, 0x1c, 0, isCompleteAccess, dataBytes, 0, 0, 0, 0, 0]);
}

/** A CoE item with a count in its head, and what follows the head. */
function coeItem(count, ...content) {
    return item(coe, Buffer.concat([Buffer.from([1, 1, 0, 1, 0, 1, 0, count]), ...content]));
}

/** A CoE item with commands and values, filled as an export does: with a copy of its head, and zeros. */
function filledCoe(fillLength) {
    const content = [command(1, 8 + fillLength), le32(0x9c46), le32(7)];
    const head = coeItem(1, ...content, Buffer.alloc(fillLength)).subarray(0, 16);
    const fill = Buffer.concat([head, Buffer.alloc(fillLength)]).subarray(0, fillLength);
    return coeItem(1, ...content, fill);
}

/** Names and contents. @param codes of all items that the format knows */
module.exports = function oddFiles(codes) {
    const files = {};
    const body = (code) => pattern(260, code === moreInfo);
    const all = [...codes.filter((code) => code !== endCode), unknown];
    const every = Buffer.concat([...all.map((code) => item(code, body(code))), end]);
    files.every = every;
    for (let size = 8; size < every.length; size += 7) files[`cut-${size}`] = every.subarray(0, size);
    for (const code of all) {
        files[`two-gigabytes-${code}`] = Buffer.concat([device, item(code, body(code), 0x7ffffffc)]);
        files[`twelve-bytes-${code}`] = Buffer.concat([device, item(code, pattern(4)), end]);
        files[`odd-size-${code}`] = Buffer.concat([device, item(code, pattern(61, code === moreInfo)), end]);
    }
    files['size-below-8'] = Buffer.concat([device, item(fmmu, pattern(20), 7), end]);
    files['negative-size'] = Buffer.concat([device, item(fmmu, pattern(20), 0x80000000), end]);
    files['negative-type'] = Buffer.concat([device, item(0x80000000, pattern(20)), end]);
    files['two-runs'] = Buffer.concat([device, end, device, end]);
    files['no-device'] = end;
    for (const fill of [0, 4, 8, 12, 16, 20, 40]) files[`fill-${fill}`] = Buffer.concat([device, filledCoe(fill), end]);
    const commands = (count) => Buffer.concat(Array(count).fill(command(0, 4)));
    files['254-commands'] = Buffer.concat([device, coeItem(254, commands(254)), end]);
    files['300-commands'] = Buffer.concat([device, coeItem(255, commands(300)), end]);
    files['size-wins-from-255-on'] = Buffer.concat([device, coeItem(3, commands(255)), end]);
    files['byte-wins-up-to-254'] = Buffer.concat([device, coeItem(3, commands(254)), end]);
    const headLike = filledCoe(20); // the last of its zeros becomes a value
    headLike[headLike.length - 1] = 1;
    files['values-like-a-head'] = Buffer.concat([device, headLike, end]);
    files['values-like-commands'] = Buffer.concat([device, coeItem(200, commands(200), pattern(1000)), end]);
    files['fewer-commands-than-255'] = Buffer.concat([device, coeItem(255, commands(3)), end]);
    const slots = Buffer.concat([Buffer.alloc(12, 44), pattern(300 * 124)]);
    files['300-slots'] = Buffer.concat([device, item(slot, slots), end]);
    return files;
};
