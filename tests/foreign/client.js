// A client made with node-opcua that goes through what tavrin-sim offers with the sample project.
"use strict";
const assert = require("assert");
const opcua = require("node-opcua");

const id = (item) => `ns=2;s=${item}`;

async function main(url) {
  const client = opcua.OPCUAClient.create({ endpointMustExist: false, connectionStrategy: { maxRetry: 1 } });
  await client.connect(url);
  const session = await client.createSession();
  const read = (item) => session.read({ nodeId: id(item), attributeId: opcua.AttributeIds.Value });
  const write = async (item, dataType, value) =>
    (await session.writeSingleNode(id(item), { dataType: opcua.DataType[dataType], value })).name;

  const objects = await session.browse("ObjectsFolder");
  const folders = objects.references.map((reference) => reference.browseName.name);
  for (const device of ["Labor", "Pruefplatz", "Brunnen_1"]) assert(folders.includes(device), device);
  const labor = await session.browse("ns=1;s=Labor");
  assert.strictEqual(labor.references.length, 22);
  console.log("browsed", folders.length - 1, "folders");

  const turbidity = await read("Labor/Probe.Trübung.Wert");
  assert.strictEqual(turbidity.statusCode.name, "Good");
  assert.strictEqual(opcua.DataType[turbidity.value.dataType], "Float");
  assert.strictEqual((await read("LABOR/PROBE.TRÜBUNG.WERT")).statusCode.name, "Good");
  assert.strictEqual((await read("Brunnen_1/Watchdog")).statusCode.name, "BadNotConnected");
  assert.strictEqual((await read("Labor/none")).statusCode.name, "BadNodeIdUnknown");
  console.log("read");

  assert.strictEqual(await write("Labor/Programm", "Byte", 7), "Good");
  assert.strictEqual((await read("Labor/Programm")).value.value, 7);
  assert.strictEqual(await write("Labor/Programm", "Byte", 13), "BadOutOfRange");
  assert.strictEqual(await write("Labor/Pumpe.Ein", "Boolean", true), "BadNotWritable");
  console.log("wrote");

  const subscription = opcua.ClientSubscription.create(session, { requestedPublishingInterval: 50, publishingEnabled: true });
  const watched = opcua.ClientMonitoredItem.create(
    subscription,
    { nodeId: id("Labor/Pumpe.Ein"), attributeId: opcua.AttributeIds.Value },
    { samplingInterval: 20, queueSize: 10 },
    opcua.TimestampsToReturn.Both
  );
  const values = [];
  await new Promise((enough) => {
    watched.on("changed", (data) => {
      values.push(data.value.value);
      if (values.length === 6) enough();
    });
  });
  for (let i = 1; i < values.length; ++i) assert.notStrictEqual(values[i], values[i - 1]);
  console.log("watched");

  assert.strictEqual(await write("Pruefplatz/COMMAND", "UInt16", 1), "Good");
  assert.strictEqual(await write("Pruefplatz/Wort_5", "Int16", 4711), "Good");
  assert.strictEqual(await write("Pruefplatz/COMMAND", "UInt16", 2), "Good");
  assert.strictEqual((await read("Pruefplatz/RESULT")).value.value, 8);
  assert.deepStrictEqual([...(await read("Pruefplatz/RESULTARRAY")).value.value], [0, 1, 1, 1, 1, 0, 1, 1, 1, 1]);
  console.log("checked by the partner");

  await session.close();
  await client.disconnect();
}

main(process.argv[2]).catch((error) => {
  console.error(error);
  process.exit(1);
});
