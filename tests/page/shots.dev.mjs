import puppeteer from 'puppeteer-core';
const [,, file, out, ...which] = process.argv;
const b = await puppeteer.launch({executablePath:'/usr/bin/chromium', args:['--no-sandbox','--allow-file-access-from-files']});
const p = await b.newPage();
p.on('pageerror', e => console.log('PAGEERROR', e.message, e.stack));
p.on('console', m => console.log('CONSOLE', m.type(), m.text()));
const S='com.orvane.zelk.metadata.metamodel.source';
const routes = {home:'#/', service:`#/service/${S}`, op:`#/operation/${S}/delete`, structure:'#/structure/com.orvane.zelk.metadata.metamodel.field_info', cmd:'#/command/metadata.metamodel.source.delete', scheme:'#/authentication/com.orvane.zelk.metadata', res:`#/resource/${S}`, source:'#/source/cli/cli%2Fzelk-metadata', search:'#/search/get', pkg:'#/package/com.orvane.zelk.metadata.metamodel', ns:'#/namespace/metadata.metamodel', missing:'#/service/nope'};
for (const [name, r] of Object.entries(routes)) {
  if (which.length && !which.includes(name)) continue;
  for (const [w,h,theme] of [[1280,860,'light'],[390,800,'dark']]) {
    await p.setViewport({width:w,height:h});
    await p.emulateMediaFeatures([{name:'prefers-color-scheme', value:theme}]);
    await p.goto('file://'+file+r); 
    await p.waitForFunction(() => document.documentElement.dataset.state==='ready',{timeout:5000}).catch(()=>console.log('NOT READY',name));
    await p.screenshot({path:`${out}/${name}-${w}-${theme}.png`});
  }
}
await p.setViewport({width:1280,height:860});
await p.goto('file://'+file+'#/'); await p.reload();
await p.keyboard.press('/'); await p.keyboard.type('sou del');
await new Promise(r=>setTimeout(r,400));
await p.screenshot({path:`${out}/searching.png`});
await b.close();
