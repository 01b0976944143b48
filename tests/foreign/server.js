// A server made with node-opcua that has some items of the sample project's laboratory, at a free port of the loopback.
"use strict";
const net = require("net");
const path = require("path");
const opcua = require("node-opcua");

function freePort() {
  return new Promise((found) => {
    const probe = net.createServer().listen(0, "127.0.0.1", () => {
      const { port } = probe.address();
      probe.close(() => found(port));
    });
  });
}

async function main() {
  const port = await freePort();
  const server = new opcua.OPCUAServer({
    host: "127.0.0.1",
    hostname: "127.0.0.1",
    port,
    serverCertificateManager: new opcua.OPCUACertificateManager({
      automaticallyAcceptUnknownCertificate: true,
      rootFolder: path.join(process.env.XDG_CONFIG_HOME, "pki"),
    }),
  });
  await server.initialize();
  const space = server.engine.addressSpace.registerNamespace("urn:foreign");
  if (space.index !== 2) throw new Error("the name space of the items has the number " + space.index);
  const folder = space.addFolder("ObjectsFolder", { browseName: "Labor" });
  const add = (tag, dataType, get) =>
    space.addVariable({
      componentOf: folder,
      nodeId: `ns=2;s=Labor/${tag}`,
      browseName: tag,
      dataType,
      minimumSamplingInterval: 50,
      value: { get: () => new opcua.Variant({ dataType, value: get() }) },
    });
  let count = 0;
  setInterval(() => ++count, 200);
  add("Programm", "Byte", () => count % 256);
  add("Probe.Trübung.Wert", "Float", () => 2.5);
  add("Ventil", "Boolean", () => true);
  await server.start();
  console.log("ready opc.tcp://127.0.0.1:" + port);
}

main();
