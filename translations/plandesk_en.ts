<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>Administration</name>
    <message>
        <source>账户%1：%2由“%3”改为“%4”</source>
        <translation>Account %1: %2 changed from &quot;%3&quot; to &quot;%4&quot;</translation>
    </message>
    <message>
        <source>账户%1：已建立，名称%2</source>
        <translation>Account %1: created, name %2</translation>
    </message>
    <message>
        <source>通用限额</source>
        <translation>usual limits</translation>
    </message>
    <message>
        <source>账户%1</source>
        <translation>Account %1</translation>
    </message>
    <message>
        <source>%1：%2由%3改为%4</source>
        <translation>%1: %2 changed from %3 to %4</translation>
    </message>
    <message>
        <source>%1元</source>
        <translation>%1 yuan</translation>
    </message>
    <message>
        <source>未知</source>
        <translation>unknown</translation>
    </message>
    <message>
        <source>账户%1：可用资金由%2改为%3</source>
        <translation>Account %1: available cash changed from %2 to %3</translation>
    </message>
    <message>
        <source>分配账户%1</source>
        <translation>account %1 assigned</translation>
    </message>
    <message>
        <source>账户%1增加指令类型%2</source>
        <translation>account %1, instruction type %2 added</translation>
    </message>
    <message>
        <source>账户%1指令类型%2不须复核</source>
        <translation>account %1, instruction type %2 is not reviewed</translation>
    </message>
    <message>
        <source>账户%1指令类型%2须复核</source>
        <translation>account %1, instruction type %2 is reviewed</translation>
    </message>
    <message>
        <source>账户%1收回指令类型%2</source>
        <translation>account %1, instruction type %2 taken away</translation>
    </message>
    <message>
        <source>收回账户%1</source>
        <translation>account %1 taken away</translation>
    </message>
    <message>
        <source>用户%1：</source>
        <translation>User %1: </translation>
    </message>
    <message>
        <source>已建立表、角色和权限</source>
        <translation>Tables, roles and privileges created</translation>
    </message>
    <message>
        <source>数据库已由版本%1升级到版本%2</source>
        <translation>Database upgraded from version %1 to version %2</translation>
    </message>
    <message>
        <source>已写入示例数据</source>
        <translation>Sample data written</translation>
    </message>
    <message>
        <source>已有用户，没有写入示例数据</source>
        <translation>There are users already, no sample data written</translation>
    </message>
    <message>
        <source>账户%1指令类型%2：%3由“%4”改为“%5”</source>
        <translation>Account %1, instruction type %2: %3 changed from &quot;%4&quot; to &quot;%5&quot;</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>&quot;%1&quot;</translation>
    </message>
    <message>
        <source>正在读取文件</source>
        <translation>Reading the file</translation>
    </message>
    <message>
        <source>内容已在服务器上，没有变化，核对%1行</source>
        <translation>The contents are on the server already, nothing changed, %1 rows compared</translation>
    </message>
    <message>
        <source>已搬移并核对%1行</source>
        <translation>%1 rows moved and compared</translation>
    </message>
    <message>
        <source>搬移</source>
        <translation>Moved</translation>
    </message>
    <message>
        <source>缺少%1</source>
        <translation>lacks the row %1</translation>
    </message>
    <message>
        <source>多出%1</source>
        <translation>has the additional row %1</translation>
    </message>
    <message>
        <source>的%1与文件的%2不同</source>
        <translation>has %1 instead of the file&apos;s %2</translation>
    </message>
    <message>
        <source>核对</source>
        <translation>Compared</translation>
    </message>
    <message>
        <source>%1%2：%3行</source>
        <translation>%1 %2: %3 rows</translation>
    </message>
    <message>
        <source>用户%1不能登录，请运行：plandesk admin add-user %2 %3 --generate-password --database %4</source>
        <translation>User %1 cannot log in, run: plandesk admin add-user %2 %3 --generate-password --database %4</translation>
    </message>
    <message>
        <source>最大数量%1</source>
        <translation>largest quantity %1</translation>
    </message>
    <message>
        <source>最大金额%1元</source>
        <translation>largest amount %1 yuan</translation>
    </message>
    <message>
        <source>价格偏离%1‰</source>
        <translation>price deviation %1‰</translation>
    </message>
    <message>
        <source>用户%1：账户%2，指令类型%3，须复核%4</source>
        <translation>User %1: account %2, instruction types %3, reviewed %4</translation>
    </message>
    <message>
        <source>无</source>
        <translation>none</translation>
    </message>
    <message>
        <source>用户%1：姓名%2，%3</source>
        <translation>User %1: name %2, %3</translation>
    </message>
    <message>
        <source>可以登录</source>
        <translation>can log in</translation>
    </message>
    <message>
        <source>不能登录</source>
        <translation>cannot log in</translation>
    </message>
    <message>
        <source>账户%1：名称%2，资金账号%3，客户号%4，营业部%5，资产属性%6，证券账户%7，%8</source>
        <translation>Account %1: name %2, fund account %3, client %4, branch %5, asset property %6, security accounts %7, %8</translation>
    </message>
    <message>
        <source>账户%1：指令类型%2，执行人%3，复核人%4</source>
        <translation>Account %1: instruction type %2, executors %3, reviewers %4</translation>
    </message>
    <message>
        <source>通用限额：%1</source>
        <translation>Usual limits: %1</translation>
    </message>
    <message>
        <source>已建立，姓名%1</source>
        <translation>created, name %1</translation>
    </message>
    <message>
        <source>登录角色可以登录</source>
        <translation>login role can log in</translation>
    </message>
    <message>
        <source>登录角色已建立</source>
        <translation>login role created</translation>
    </message>
    <message>
        <source>没有设置密码</source>
        <translation>no password set</translation>
    </message>
    <message>
        <source>密码为%1</source>
        <translation>password %1</translation>
    </message>
    <message>
        <source>密码已设置</source>
        <translation>password set</translation>
    </message>
    <message>
        <source>用户%1：姓名由%2改为%3</source>
        <translation>User %1: name changed from %2 to %3</translation>
    </message>
    <message>
        <source>用户%1：登录角色已停用</source>
        <translation>User %1: login role disabled</translation>
    </message>
    <message>
        <source>用户%1：没有权限结束其连接（须属于pg_signal_backend），连接已无权读写</source>
        <translation>User %1: not permitted to end the connections (needs pg_signal_backend); they can no longer read or write</translation>
    </message>
    <message>
        <source>用户%1：已结束%2个连接</source>
        <translation>User %1: %2 connections ended</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1的证券账户</source>
        <translation>Security account on %1</translation>
    </message>
</context>
<context>
    <name>Advisor</name>
    <message>
        <source>%1元</source>
        <translation>%1 yuan</translation>
    </message>
    <message>
        <source>%1股</source>
        <translation>%1 shares</translation>
    </message>
    <message>
        <source>期间%1个交易日</source>
        <translation>%1 trade days in the period</translation>
    </message>
    <message>
        <source>%1，不会完成：%2</source>
        <translation>%1, not complete: %2</translation>
    </message>
    <message>
        <source>%1，按现价不会成交</source>
        <translation>%1, no fills at the present price</translation>
    </message>
    <message>
        <source>%1，按现价只能部分成交，最后剩余%2</source>
        <translation>%1, only partly filled at the present price, %2 left at the end</translation>
    </message>
    <message>
        <source>休市</source>
        <translation>closed</translation>
    </message>
    <message>
        <source>之后的交易日未知</source>
        <translation>later trade days are unknown</translation>
    </message>
    <message>
        <source>没有目标</source>
        <translation>No target</translation>
    </message>
    <message>
        <source>目标已经完成</source>
        <translation>The target is complete</translation>
    </message>
    <message>
        <source>预计%1完成，需%2个交易日</source>
        <translation>Complete on %1, after %2 trade days</translation>
    </message>
    <message>
        <source>需%1个以上交易日，期间仅%2个</source>
        <translation>Needs more than %1 trade days, the period has only %2</translation>
    </message>
    <message>
        <source>需%1个交易日，期间仅%2个</source>
        <translation>Needs %1 trade days, the period has only %2</translation>
    </message>
    <message>
        <source>每日最多%1，即目标的%2%；总股本未知，未核对连续90天减持不超过总股本1%</source>
        <translation>At most %1 a day, %2% of the target. The share capital is unknown, so its 1% limit within 90 days is not checked</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>下达</source>
        <translation>Issued</translation>
    </message>
    <message>
        <source>金额（元）</source>
        <translation>Yuan</translation>
    </message>
    <message>
        <source>剩余</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>必填</source>
        <translation>required</translation>
    </message>
    <message>
        <source>客户%1尚未签署</source>
        <translation>client %1 has not signed</translation>
    </message>
    <message>
        <source>应为%1的正整数倍</source>
        <translation>should be a positive multiple of %1</translation>
    </message>
    <message>
        <source>含有特殊字符%1</source>
        <translation>contains the special character %1</translation>
    </message>
    <message>
        <source>算法的交易账号与计划不一致</source>
        <translation>the algorithm&apos;s account differs from the plan&apos;s</translation>
    </message>
    <message>
        <source>算法的交易方向与计划不一致</source>
        <translation>the algorithm&apos;s side differs from the plan&apos;s</translation>
    </message>
    <message>
        <source>该算法不支持不限价</source>
        <translation>the algorithm needs a price limit</translation>
    </message>
    <message>
        <source>小于已成交和在下达的%1</source>
        <translation>less than %1, which is filled or being issued</translation>
    </message>
    <message>
        <source>计划已开始，开始日期应为%1</source>
        <translation>the plan has begun, its first day should be %1</translation>
    </message>
    <message>
        <source>结束日期早于今日</source>
        <translation>the last day is before today</translation>
    </message>
    <message>
        <source>不是%1的整数倍</source>
        <translation>not a multiple of %1</translation>
    </message>
    <message>
        <source>可卖只有%1</source>
        <translation>only %1 can be sold</translation>
    </message>
    <message>
        <source>风险揭示</source>
        <translation>Risk disclosure</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>指令类型</source>
        <translation>Instruction</translation>
    </message>
    <message>
        <source>证券代码</source>
        <translation>Security code</translation>
    </message>
    <message>
        <source>目标总量</source>
        <translation>Target total</translation>
    </message>
    <message>
        <source>目标的倍数</source>
        <translation>Multiple of the target</translation>
    </message>
    <message>
        <source>每日计划量</source>
        <translation>Daily quantity</translation>
    </message>
    <message>
        <source>每日的倍数</source>
        <translation>Multiple of the day</translation>
    </message>
    <message>
        <source>减持占比</source>
        <translation>Sell ratio</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>价格的字符</source>
        <translation>Characters of the price</translation>
    </message>
    <message>
        <source>价格2</source>
        <translation>Price 2</translation>
    </message>
    <message>
        <source>价格2的字符</source>
        <translation>Characters of price 2</translation>
    </message>
    <message>
        <source>执行人</source>
        <translation>Executor</translation>
    </message>
    <message>
        <source>下单模式</source>
        <translation>Order mode</translation>
    </message>
    <message>
        <source>算法参数</source>
        <translation>Algorithm</translation>
    </message>
    <message>
        <source>算法与计划</source>
        <translation>Algorithm and plan</translation>
    </message>
    <message>
        <source>算法与价格</source>
        <translation>Algorithm and price</translation>
    </message>
    <message>
        <source>目标与已用</source>
        <translation>Target and used</translation>
    </message>
    <message>
        <source>已开始的计划</source>
        <translation>Plan that has begun</translation>
    </message>
    <message>
        <source>目标的每手</source>
        <translation>Step of the target</translation>
    </message>
    <message>
        <source>每日的每手</source>
        <translation>Step of the day</translation>
    </message>
    <message>
        <source>持仓可用</source>
        <translation>Holdings</translation>
    </message>
    <message>
        <source>证券状态</source>
        <translation>State of the security</translation>
    </message>
    <message>
        <source>没有可用的价格：%1</source>
        <translation>No usable price: %1</translation>
    </message>
    <message>
        <source>不限价，以下按昨收价%1估算</source>
        <translation>No limit; estimated with the last close %1</translation>
    </message>
    <message>
        <source>结果%1，%2</source>
        <translation>Result %1, %2</translation>
    </message>
    <message>
        <source>结果%1，不在最小价位上，按%2</source>
        <translation>Result %1, between two ticks, taken as %2</translation>
    </message>
    <message>
        <source>结果%1</source>
        <translation>Result %1</translation>
    </message>
    <message>
        <source>高于涨停价，按%1</source>
        <translation>above the upper limit, taken as %1</translation>
    </message>
    <message>
        <source>低于跌停价，按%1</source>
        <translation>below the lower limit, taken as %1</translation>
    </message>
    <message>
        <source>没有</source>
        <translation>none</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>数值</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>未通过</source>
        <translation>failed</translation>
    </message>
    <message>
        <source>将询问</source>
        <translation>will be asked</translation>
    </message>
    <message>
        <source>提醒</source>
        <translation>warning</translation>
    </message>
    <message>
        <source>正在读取……</source>
        <translation>reading...</translation>
    </message>
    <message>
        <source>通过</source>
        <translation>passed</translation>
    </message>
    <message>
        <source>不适用</source>
        <translation>not applicable</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1（提醒）</source>
        <translation>%1 (warning)</translation>
    </message>
    <message>
        <source>计划服务</source>
        <translation>Plan service</translation>
    </message>
    <message>
        <source>%1%2项</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>没有发现问题</source>
        <translation>No problems found</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>检查</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Explanation</translation>
    </message>
    <message>
        <source>没有收盘价</source>
        <translation>no closing price</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>不设涨跌停</source>
        <translation>no price limits</translation>
    </message>
    <message>
        <source>买入</source>
        <translation>buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>sell</translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>方向相反：%1</source>
        <translation>opposite: %1</translation>
    </message>
    <message>
        <source>其他计划</source>
        <translation>Other plans</translation>
    </message>
    <message>
        <source>无</source>
        <translation>none</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>尚未选择</source>
        <translation>not chosen</translation>
    </message>
    <message>
        <source>每手</source>
        <translation>Lot</translation>
    </message>
    <message>
        <source>读取失败</source>
        <translation>Not read</translation>
    </message>
    <message>
        <source>昨收价</source>
        <translation>Last close</translation>
    </message>
    <message>
        <source>涨停 / 跌停</source>
        <translation>Limits</translation>
    </message>
    <message>
        <source>可卖数量</source>
        <translation>To sell</translation>
    </message>
    <message>
        <source>每手%1，零头%2不会下达</source>
        <translation>the lot is %1, %2 will not be issued</translation>
    </message>
    <message>
        <source>不在最小价位上，按%1</source>
        <translation>between two ticks, taken as %1</translation>
    </message>
    <message>
        <source>约%1元，是该账户通常%2元的%3倍</source>
        <translation>about %1 yuan, %3 times the usual %2 yuan of the account</translation>
    </message>
    <message>
        <source>同一证券有反向计划%1</source>
        <translation>plans in the other direction on this security: %1</translation>
    </message>
    <message>
        <source>与其他计划共卖%1，可卖只有%2</source>
        <translation>with other plans %1 would be sold, only %2 can be</translation>
    </message>
    <message>
        <source>目标的零股</source>
        <translation>Odd lot of the target</translation>
    </message>
    <message>
        <source>每日的零股</source>
        <translation>Odd lot of the day</translation>
    </message>
    <message>
        <source>价格可用</source>
        <translation>Usable price</translation>
    </message>
    <message>
        <source>最小价位</source>
        <translation>Tick</translation>
    </message>
    <message>
        <source>涨跌停</source>
        <translation>Price limits</translation>
    </message>
    <message>
        <source>通常规模</source>
        <translation>Usual size</translation>
    </message>
    <message>
        <source>反向计划</source>
        <translation>Opposite plan</translation>
    </message>
    <message>
        <source>合计持仓</source>
        <translation>Holdings for all plans</translation>
    </message>
    <message>
        <source>按期完成</source>
        <translation>Complete in time</translation>
    </message>
    <message>
        <source>最小价位是%1</source>
        <translation>The price step is %1</translation>
    </message>
    <message>
        <source>买入每笔至少%1</source>
        <translation>A purchase has at least %1</translation>
    </message>
    <message>
        <source>涨跌幅</source>
        <translation>price limit</translation>
    </message>
    <message>
        <source>最小买入数量</source>
        <translation>Smallest purchase</translation>
    </message>
    <message>
        <source>数量步长</source>
        <translation>quantity step</translation>
    </message>
    <message>
        <source>%1起%2由%3改为%4</source>
        <translation>from %1 on: %2 %4 instead of %3</translation>
    </message>
    <message>
        <source>；</source>
        <translation>; </translation>
    </message>
    <message>
        <source>规则变更</source>
        <translation>Change of rules</translation>
    </message>
    <message>
        <source>%1张</source>
        <translation>%1 bonds</translation>
    </message>
    <message>
        <source>%1 起</source>
        <translation>from %1</translation>
    </message>
    <message>
        <source>目标的输入</source>
        <translation>Target as typed</translation>
    </message>
    <message>
        <source>每日的输入</source>
        <translation>Per day as typed</translation>
    </message>
    <message>
        <source>占比的输入</source>
        <translation>Ratio as typed</translation>
    </message>
    <message>
        <source>开始日期</source>
        <translation>Start date</translation>
    </message>
    <message>
        <source>结束日期</source>
        <translation>End date</translation>
    </message>
    <message>
        <source>单个日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>未知</source>
        <translation>unknown</translation>
    </message>
    <message>
        <source>%1亿</source>
        <translation>%1×10⁸</translation>
    </message>
    <message>
        <source>%1万</source>
        <translation>%1×10⁴</translation>
    </message>
    <message>
        <source>%1，%2元</source>
        <translation>%1, %2 yuan</translation>
    </message>
    <message>
        <source>%1，当年休市安排未公布，未核实</source>
        <translation>%1, not verified: the closures of that year have not been announced</translation>
    </message>
</context>
<context>
    <name>AdvisorPanel</name>
    <message>
        <source>顾问</source>
        <translation>Advisor</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>项目</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Contents</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>点击插入价格公式</source>
        <translation>Click to insert into the price formula</translation>
    </message>
    <message>
        <source>公式中可用的名称</source>
        <translation>Names for formulas</translation>
    </message>
    <message>
        <source>检查</source>
        <translation>Checks</translation>
    </message>
    <message>
        <source>每日计划</source>
        <translation>Day by day</translation>
    </message>
    <message>
        <source>每日下达和剩余</source>
        <translation>Issued and left on each day</translation>
    </message>
</context>
<context>
    <name>AdvisorSide</name>
    <message>
        <source>隐藏顾问</source>
        <translation>Hide the advisor</translation>
    </message>
    <message>
        <source>显示顾问</source>
        <translation>Show the advisor</translation>
    </message>
    <message>
        <source>%1（F7）</source>
        <translation>%1 (F7)</translation>
    </message>
</context>
<context>
    <name>Alerts</name>
    <message>
        <source>未下达</source>
        <translation>Not issued</translation>
    </message>
    <message>
        <source>漏下达</source>
        <translation>Missed</translation>
    </message>
    <message>
        <source>即将结束</source>
        <translation>Ends soon</translation>
    </message>
    <message>
        <source>他人修改</source>
        <translation>Changed by others</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1没有下达，也没有原因</source>
        <translation>Neither issued nor refused on %1</translation>
    </message>
    <message>
        <source>下一交易日%1结束</source>
        <translation>Ends on %1, the next trade day</translation>
    </message>
    <message>
        <source>%1修改为第%2版</source>
        <translation>%1 made version %2</translation>
    </message>
    <message>
        <source>查看计划</source>
        <translation>Go to Plan</translation>
    </message>
    <message>
        <source>已处理</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>提醒</source>
        <translation>Alerts</translation>
    </message>
    <message>
        <source>尚未处理的提醒</source>
        <translation>Alerts to work off</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>Plan No.</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>没有提醒。</source>
        <translation>No alerts.</translation>
    </message>
    <message>
        <source>%1条提醒</source>
        <translation>%1 alerts</translation>
    </message>
    <message>
        <source>今天结束</source>
        <translation>Ends today</translation>
    </message>
</context>
<context>
    <name>AlgorithmPanel</name>
    <message>
        <source>买入</source>
        <translation>Buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>算法参数设置</source>
        <translation>Algorithm parameters</translation>
    </message>
    <message>
        <source>算法</source>
        <translation>Algorithm</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>请选择算法。</source>
        <translation>Choose an algorithm.</translation>
    </message>
    <message>
        <source>当前证券和指令类型没有可用的算法。</source>
        <translation>There is no algorithm for this security and instruction type.</translation>
    </message>
    <message>
        <source>账号：%1    证券：%2    方向：%3</source>
        <translation>Account: %1    Security: %2    Side: %3</translation>
    </message>
</context>
<context>
    <name>BuiltInTexts</name>
    <message>
        <source>时间加权</source>
        <translation>Time-weighted</translation>
    </message>
    <message>
        <source>成交量加权</source>
        <translation>Volume-weighted</translation>
    </message>
    <message>
        <source>比例跟量</source>
        <translation>Participation</translation>
    </message>
    <message>
        <source>冰山</source>
        <translation>Iceberg</translation>
    </message>
    <message>
        <source>狙击</source>
        <translation>Sniper</translation>
    </message>
    <message>
        <source>在开始与结束时间之间，按相等的时间间隔分批下单。</source>
        <translation>Places orders in equal intervals between start and end.</translation>
    </message>
    <message>
        <source>按历史成交量分布安排各时段的下单数量，使成交均价接近市场均价。</source>
        <translation>Distributes the quantity like the volume of past days, to trade near the market&apos;s average price.</translation>
    </message>
    <message>
        <source>按同期市场成交量的一定比例跟随下单。</source>
        <translation>Follows the market&apos;s volume with a fixed share of it.</translation>
    </message>
    <message>
        <source>每次只显示一小部分数量，成交后再补单。</source>
        <translation>Shows a small part of the quantity and refills it after each fill.</translation>
    </message>
    <message>
        <source>不主动挂单，对手盘出现合适的数量和价格时立即吃单。</source>
        <translation>Waits, and takes the opposite side when its quantity and price suit.</translation>
    </message>
    <message>
        <source>开始时间须早于结束时间！</source>
        <translation>The start must be before the end.</translation>
    </message>
    <message>
        <source>目标参与率不得大于最大参与率！</source>
        <translation>The target participation must not exceed the maximum.</translation>
    </message>
    <message>
        <source>执行时段</source>
        <translation>Period</translation>
    </message>
    <message>
        <source>执行约束</source>
        <translation>Constraints</translation>
    </message>
    <message>
        <source>显示</source>
        <translation>Display</translation>
    </message>
    <message>
        <source>触发</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>开始时间</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>结束时间</source>
        <translation>End</translation>
    </message>
    <message>
        <source>下单间隔</source>
        <translation>Interval</translation>
    </message>
    <message>
        <source>补单等待</source>
        <translation>Refill delay</translation>
    </message>
    <message>
        <source>最大参与率</source>
        <translation>Max. participation</translation>
    </message>
    <message>
        <source>目标参与率</source>
        <translation>Target participation</translation>
    </message>
    <message>
        <source>最大价格偏离</source>
        <translation>Max. price deviation</translation>
    </message>
    <message>
        <source>收盘前完成剩余数量</source>
        <translation>Complete before the close</translation>
    </message>
    <message>
        <source>积极程度</source>
        <translation>Urgency</translation>
    </message>
    <message>
        <source>成交量分布</source>
        <translation>Volume profile</translation>
    </message>
    <message>
        <source>显示数量</source>
        <translation>Display quantity</translation>
    </message>
    <message>
        <source>显示数量浮动</source>
        <translation>Display variation</translation>
    </message>
    <message>
        <source>触发数量</source>
        <translation>Trigger quantity</translation>
    </message>
    <message>
        <source>吃单比例</source>
        <translation>Take ratio</translation>
    </message>
    <message>
        <source>最差价格</source>
        <translation>Worst price</translation>
    </message>
    <message>
        <source>委托价偏移</source>
        <translation>Price offset</translation>
    </message>
    <message>
        <source>交易员备注</source>
        <translation>Trader&apos;s note</translation>
    </message>
    <message>
        <source>秒</source>
        <translation>s</translation>
    </message>
    <message>
        <source>股</source>
        <translation>shares</translation>
    </message>
    <message>
        <source>元</source>
        <translation>yuan</translation>
    </message>
    <message>
        <source>档</source>
        <translation>ticks</translation>
    </message>
    <message>
        <source>低</source>
        <translation>Low</translation>
    </message>
    <message>
        <source>中</source>
        <translation>Medium</translation>
    </message>
    <message>
        <source>高</source>
        <translation>High</translation>
    </message>
    <message>
        <source>近5个交易日</source>
        <translation>Last 5 trade days</translation>
    </message>
    <message>
        <source>近20个交易日</source>
        <translation>Last 20 trade days</translation>
    </message>
    <message>
        <source>近60个交易日</source>
        <translation>Last 60 trade days</translation>
    </message>
    <message>
        <source>成交量占同期市场成交量的上限</source>
        <translation>Largest share of the market&apos;s volume in the same time</translation>
    </message>
    <message>
        <source>委托价相对开始时刻最新价的最大不利偏离</source>
        <translation>Largest adverse deviation of the order price from the last price at the start</translation>
    </message>
    <message>
        <source>相对同方向最优价，正数更积极</source>
        <translation>From the best price of the same side; positive is more aggressive</translation>
    </message>
    <message>
        <source>对手方最优价上的数量达到此数时出手</source>
        <translation>Trades when the best opposite price has this quantity</translation>
    </message>
    <message>
        <source>不填则只受计划的限价约束</source>
        <translation>Empty: only the plan&apos;s limit applies</translation>
    </message>
</context>
<context>
    <name>CalendarPopup</name>
    <message>
        <source>上个月</source>
        <translation>Previous month</translation>
    </message>
    <message>
        <source>下个月</source>
        <translation>Next month</translation>
    </message>
    <message>
        <source>一二三四五六日</source>
        <translation>MTWTFSS</translation>
    </message>
    <message>
        <source>%1年%2月</source>
        <translation>%2/%1</translation>
    </message>
    <message>
        <source>日历，%1</source>
        <translation>Calendar, %1</translation>
    </message>
    <message>
        <source>日历</source>
        <translation>Calendar</translation>
    </message>
</context>
<context>
    <name>Caption</name>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>资金账号</source>
        <translation>Fund account</translation>
    </message>
    <message>
        <source>客户号</source>
        <translation>Client number</translation>
    </message>
    <message>
        <source>营业部</source>
        <translation>Branch</translation>
    </message>
    <message>
        <source>资产属性</source>
        <translation>Asset property</translation>
    </message>
    <message>
        <source>最大数量</source>
        <translation>Largest quantity</translation>
    </message>
    <message>
        <source>最大金额（元）</source>
        <translation>Largest amount (yuan)</translation>
    </message>
    <message>
        <source>价格偏离（‰）</source>
        <translation>Price deviation (‰)</translation>
    </message>
    <message>
        <source>资金（元）</source>
        <translation>Cash (yuan)</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>指令类型</source>
        <translation>Instruction</translation>
    </message>
    <message>
        <source>执行人</source>
        <translation>Executor</translation>
    </message>
    <message>
        <source>复核人</source>
        <translation>Reviewers</translation>
    </message>
    <message>
        <source>姓名</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>市场</source>
        <translation>Market</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>证券数量</source>
        <translation>Number of securities</translation>
    </message>
    <message>
        <source>表</source>
        <translation>table</translation>
    </message>
    <message>
        <source>索引</source>
        <translation>index</translation>
    </message>
    <message>
        <source>视图</source>
        <translation>view</translation>
    </message>
    <message>
        <source>触发器</source>
        <translation>trigger</translation>
    </message>
    <message>
        <source>目标金额</source>
        <translation>Target amount</translation>
    </message>
    <message>
        <source>目标总量</source>
        <translation>Target total</translation>
    </message>
    <message>
        <source>普通买入</source>
        <translation>Ordinary buy</translation>
    </message>
    <message>
        <source>担保品买入</source>
        <translation>Collateral buy</translation>
    </message>
    <message>
        <source>担保品卖出</source>
        <translation>Collateral sell</translation>
    </message>
    <message>
        <source>买券还券</source>
        <translation>Buy to return shares</translation>
    </message>
    <message>
        <source>融券卖出</source>
        <translation>Short sale</translation>
    </message>
    <message>
        <source>融资买入</source>
        <translation>Margin buy</translation>
    </message>
    <message>
        <source>卖券还款</source>
        <translation>Sell to repay</translation>
    </message>
    <message>
        <source>信用普通买入</source>
        <translation>Credit account buy</translation>
    </message>
    <message>
        <source>信用普通卖出</source>
        <translation>Credit account sell</translation>
    </message>
    <message>
        <source>债券转股</source>
        <translation>Bond conversion</translation>
    </message>
    <message>
        <source>配股缴款</source>
        <translation>Rights issue payment</translation>
    </message>
    <message>
        <source>证券账户</source>
        <translation>Security account</translation>
    </message>
    <message>
        <source>指令单类型</source>
        <translation>Target type</translation>
    </message>
    <message>
        <source>计划类型</source>
        <translation>Plan type</translation>
    </message>
    <message>
        <source>证券代码</source>
        <translation>Security code</translation>
    </message>
    <message>
        <source>证券子类型</source>
        <translation>Security sub-type</translation>
    </message>
    <message>
        <source>交易方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>报价类型</source>
        <translation>Price type</translation>
    </message>
    <message>
        <source>委托类别</source>
        <translation>Order category</translation>
    </message>
    <message>
        <source>价格模式</source>
        <translation>Price mode</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>价格1</source>
        <translation>Price 1</translation>
    </message>
    <message>
        <source>价格2</source>
        <translation>Price 2</translation>
    </message>
    <message>
        <source>每日委托量</source>
        <translation>Daily quantity</translation>
    </message>
    <message>
        <source>每日最大金额</source>
        <translation>Largest daily amount</translation>
    </message>
    <message>
        <source>减持占比</source>
        <translation>Sell ratio</translation>
    </message>
    <message>
        <source>减持模式</source>
        <translation>Reduction rule</translation>
    </message>
    <message>
        <source>下单模式</source>
        <translation>Order mode</translation>
    </message>
    <message>
        <source>分配给</source>
        <translation>Assignee</translation>
    </message>
    <message>
        <source>开始日期</source>
        <translation>Begin date</translation>
    </message>
    <message>
        <source>结束日期</source>
        <translation>End date</translation>
    </message>
    <message>
        <source>算法</source>
        <translation>Algorithm</translation>
    </message>
    <message>
        <source>算法参数</source>
        <translation>Algorithm parameters</translation>
    </message>
    <message>
        <source>备注</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>操作用户</source>
        <translation>User</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>创建时间</source>
        <translation>Time of creation</translation>
    </message>
    <message>
        <source>修改时间</source>
        <translation>Time of change</translation>
    </message>
    <message>
        <source>无</source>
        <translation>none</translation>
    </message>
    <message>
        <source>累计数量</source>
        <translation>Cumulative quantity</translation>
    </message>
    <message>
        <source>平均数量</source>
        <translation>Average quantity</translation>
    </message>
    <message>
        <source>相同要素</source>
        <translation>Same elements</translation>
    </message>
    <message>
        <source>减持</source>
        <translation>Holdings reduction</translation>
    </message>
    <message>
        <source>普通交易</source>
        <translation>Ordinary trading</translation>
    </message>
    <message>
        <source>信用交易</source>
        <translation>Credit trading</translation>
    </message>
    <message>
        <source>债券交易</source>
        <translation>Bond trading</translation>
    </message>
    <message>
        <source>港股通交易</source>
        <translation>Hong Kong Connect trading</translation>
    </message>
    <message>
        <source>买入</source>
        <translation>Buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>不限价</source>
        <translation>No limit</translation>
    </message>
    <message>
        <source>自定义</source>
        <translation>Custom</translation>
    </message>
    <message>
        <source>比较值取最大</source>
        <translation>Larger of two prices</translation>
    </message>
    <message>
        <source>比较值取最小</source>
        <translation>Smaller of two prices</translation>
    </message>
    <message>
        <source>主动管理</source>
        <translation>Active management</translation>
    </message>
    <message>
        <source>普通交易复核</source>
        <translation>Ordinary trade review</translation>
    </message>
    <message>
        <source>算法交易复核</source>
        <translation>Algorithmic trade review</translation>
    </message>
    <message>
        <source>增强限价盘</source>
        <translation>Enhanced limit order</translation>
    </message>
    <message>
        <source>竞价限价盘</source>
        <translation>At-auction limit order</translation>
    </message>
    <message>
        <source>上海证券交易所</source>
        <translation>Shanghai Stock Exchange</translation>
    </message>
    <message>
        <source>深圳证券交易所</source>
        <translation>Shenzhen Stock Exchange</translation>
    </message>
    <message>
        <source>北京证券交易所</source>
        <translation>Beijing Stock Exchange</translation>
    </message>
    <message>
        <source>港股通</source>
        <translation>Hong Kong Connect</translation>
    </message>
    <message>
        <source>股票</source>
        <translation>Stock</translation>
    </message>
    <message>
        <source>债券</source>
        <translation>Bond</translation>
    </message>
    <message>
        <source>基金</source>
        <translation>Fund</translation>
    </message>
    <message>
        <source>主板</source>
        <translation>Main board</translation>
    </message>
    <message>
        <source>中小板</source>
        <translation>SME board</translation>
    </message>
    <message>
        <source>创业板</source>
        <translation>Growth board</translation>
    </message>
    <message>
        <source>科创板</source>
        <translation>Science and technology board</translation>
    </message>
    <message>
        <source>北交所股票</source>
        <translation>Beijing stock</translation>
    </message>
    <message>
        <source>港股通股票</source>
        <translation>Hong Kong Connect stock</translation>
    </message>
    <message>
        <source>配股</source>
        <translation>Rights issue</translation>
    </message>
    <message>
        <source>ETF</source>
        <translation>ETF</translation>
    </message>
    <message>
        <source>REITs</source>
        <translation>REITs</translation>
    </message>
    <message>
        <source>资产支持证券</source>
        <translation>Asset-backed security</translation>
    </message>
    <message>
        <source>定向可转债</source>
        <translation>Private convertible bond</translation>
    </message>
    <message>
        <source>配债</source>
        <translation>Bond rights issue</translation>
    </message>
    <message>
        <source>可转债</source>
        <translation>Convertible bond</translation>
    </message>
    <message>
        <source>可交换债</source>
        <translation>Exchangeable bond</translation>
    </message>
    <message>
        <source>国债</source>
        <translation>Treasury bond</translation>
    </message>
    <message>
        <source>地方政府债</source>
        <translation>Local government bond</translation>
    </message>
    <message>
        <source>政策性金融债</source>
        <translation>Policy bank bond</translation>
    </message>
    <message>
        <source>公司债</source>
        <translation>Corporate bond</translation>
    </message>
    <message>
        <source>企业债</source>
        <translation>Enterprise bond</translation>
    </message>
    <message>
        <source>普通</source>
        <translation>Ordinary</translation>
    </message>
    <message>
        <source>信用</source>
        <translation>Credit</translation>
    </message>
    <message>
        <source>正常</source>
        <translation>none</translation>
    </message>
    <message>
        <source>是</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>否</source>
        <translation>no</translation>
    </message>
    <message>
        <source>内地</source>
        <translation>Mainland</translation>
    </message>
    <message>
        <source>香港</source>
        <translation>Hong Kong</translation>
    </message>
    <message>
        <source>已公布</source>
        <translation>announced</translation>
    </message>
    <message>
        <source>暂定</source>
        <translation>provisional</translation>
    </message>
    <message>
        <source>推算</source>
        <translation>computed</translation>
    </message>
    <message>
        <source>进行中</source>
        <translation>active</translation>
    </message>
    <message>
        <source>已暂停</source>
        <translation>paused</translation>
    </message>
    <message>
        <source>已停止</source>
        <translation>stopped</translation>
    </message>
    <message>
        <source>已归档</source>
        <translation>archived</translation>
    </message>
</context>
<context>
    <name>ChangeNotice</name>
    <message>
        <source>查看不同之处</source>
        <translation>Show the differences</translation>
    </message>
    <message>
        <source>您正在修改第%1版，%2已于%3保存了第%4版。</source>
        <translation>You are editing version %1; %2 saved version %4 at %3.</translation>
    </message>
</context>
<context>
    <name>ClientWidget</name>
    <message>
        <source>交易客户端</source>
        <translation>Trading client</translation>
    </message>
</context>
<context>
    <name>ClientWidgets</name>
    <message>
        <source>小节标题</source>
        <translation>Section heading</translation>
    </message>
    <message>
        <source>字段标题或单位</source>
        <translation>Caption or unit of a field</translation>
    </message>
    <message>
        <source>放不下时省略的文字</source>
        <translation>Text that is elided where it does not fit</translation>
    </message>
    <message>
        <source>下拉框，可带搜索</source>
        <translation>Box, searchable if wanted</translation>
    </message>
    <message>
        <source>账户下拉框</source>
        <translation>Box of accounts</translation>
    </message>
    <message>
        <source>日期或日期区间</source>
        <translation>Date or range of dates</translation>
    </message>
    <message>
        <source>可以为空的数字，带步进按钮</source>
        <translation>Number that may be empty, with step buttons</translation>
    </message>
    <message>
        <source>可以为空的数字</source>
        <translation>Number that may be empty</translation>
    </message>
    <message>
        <source>价格公式</source>
        <translation>Price formula</translation>
    </message>
    <message>
        <source>按钮，样式为normal、highlight或text</source>
        <translation>Button in the style normal, highlight or text</translation>
    </message>
    <message>
        <source>小节标题，文字由程序设置</source>
        <translation>Section heading, its text set by the program</translation>
    </message>
    <message>
        <source>按代码或名称查找证券</source>
        <translation>Searches a security by code or name</translation>
    </message>
</context>
<context>
    <name>ComboSearchPopup</name>
    <message>
        <source>输入文字筛选</source>
        <translation>Type to narrow the list</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>交易计划客户端：新建、修改、复制自动交易计划。</source>
        <translation>Trading plan client: creates, edits and copies automatic trading plans.</translation>
    </message>
    <message>
        <source>命令</source>
        <translation>command</translation>
    </message>
    <message>
        <source>[命令 参数]</source>
        <translation>[command arguments]</translation>
    </message>
    <message>
        <source>自动演示：逐项填写并提交计划，核对数据库中的记录，把各步的图片写入该目录。</source>
        <translation>Walk-through: fills in and sends plans, compares the database and writes pictures of each stage to the folder.</translation>
    </message>
    <message>
        <source>目录</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>写入图片和数据库的目录。</source>
        <translation>folder for the pictures and the database.</translation>
    </message>
    <message>
        <source>显示本说明并退出。</source>
        <translation>prints this help and exits.</translation>
    </message>
    <message>
        <source>登录的用户编号，默认为示例数据的第一个用户。</source>
        <translation>id of the user to log in; default: the first one of the sample data.</translation>
    </message>
    <message>
        <source>用户</source>
        <translation>user</translation>
    </message>
    <message>
        <source>数据库文件，不存在时新建并写入示例数据，默认在用户的数据目录中；或服务器上数据库的地址。</source>
        <translation>database file, created with the sample data if it is missing; default: in the user&apos;s data folder. Or the address of a database on a server.</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>皮肤：light（默认）或dark。</source>
        <translation>skin: light (default) or dark.</translation>
    </message>
    <message>
        <source>皮肤</source>
        <translation>skin</translation>
    </message>
    <message>
        <source>语言：zh（默认）或en；数据和其中的名称仍为中文。</source>
        <translation>language: zh (default) or en; data and their names stay Chinese.</translation>
    </message>
    <message>
        <source>语言</source>
        <translation>language</translation>
    </message>
    <message>
        <source>新建数据库时示例证券的数量，例如100000。</source>
        <translation>number of securities in a new database, for example 100000.</translation>
    </message>
    <message>
        <source>数量</source>
        <translation>number</translation>
    </message>
    <message>
        <source>FIXatdl策略文件（*.xml）所在的文件夹，文件变化后自动重新读取。</source>
        <translation>folder of FIXatdl strategy files (*.xml), which are read again when they change.</translation>
    </message>
    <message>
        <source>文件夹</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>为今天（yyyy-MM-dd）有效的计划下达指令，列出结果并退出；其他日期须加--simulate。</source>
        <translation>issues instructions for the plans of today (yyyy-MM-dd), lists the result and exits; another day needs --simulate.</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>命令journal和export journal的日期（yyyy-MM-dd），默认为今天。</source>
        <translation>day of the commands journal and export journal (yyyy-MM-dd); default: today.</translation>
    </message>
    <message>
        <source>import plans中没有的列取自该计划，每行生成一个计划。</source>
        <translation>import plans takes missing columns from this plan and creates a plan for each row.</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>PLAN</translation>
    </message>
    <message>
        <source>列出今天或--issue-day的日期会下达的指令并退出，不下达。</source>
        <translation>lists what would go out today or on the day of --issue-day and exits.</translation>
    </message>
    <message>
        <source>下达或预览时不限于今天和市场的委托时间。</source>
        <translation>issues or previews also another day, or while the market is closed.</translation>
    </message>
    <message>
        <source>以JSON输出命令history、journal、check-strategies、import、export、admin list和--issue-preview的结果。</source>
        <translation>prints the result of history, journal, check-strategies, import, export, admin list and --issue-preview as JSON.</translation>
    </message>
    <message>
        <source>import删除文件中没有的内容，先列出并询问。</source>
        <translation>import removes what the file does not have, after listing it and asking.</translation>
    </message>
    <message>
        <source>import只检查并列出会发生的变化，不保存。</source>
        <translation>import only checks and lists what would change, and stores nothing.</translation>
    </message>
    <message>
        <source>import --replace不再询问。</source>
        <translation>import --replace does not ask.</translation>
    </message>
    <message>
        <source>import plans --template略去有错误的行，导入其余各行。</source>
        <translation>import plans --template leaves out rows with errors and imports the others.</translation>
    </message>
    <message>
        <source>新建的数据库不写入示例数据。</source>
        <translation>a new database gets no sample data.</translation>
    </message>
    <message>
        <source>admin init写入示例数据。</source>
        <translation>admin init writes the sample data.</translation>
    </message>
    <message>
        <source>admin grant的指令须经复核。</source>
        <translation>admin grant: the instructions are reviewed.</translation>
    </message>
    <message>
        <source>admin add-user从标准输入的第一行读取密码。</source>
        <translation>admin add-user reads the password from the first line of the standard input.</translation>
    </message>
    <message>
        <source>admin add-user为新用户生成密码并显示。</source>
        <translation>admin add-user generates a password for a new user and prints it.</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>已是如此，没有变化</source>
        <translation>Nothing to change</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>把数据库备份到新文件</source>
        <translation>copy the database into a new file</translation>
    </message>
    <message>
        <source>文件...</source>
        <translation>FILE...</translation>
    </message>
    <message>
        <source>检查FIXatdl策略文件</source>
        <translation>check FIXatdl strategy files</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>PLAN</translation>
    </message>
    <message>
        <source>列出计划的历史</source>
        <translation>list the history of a plan</translation>
    </message>
    <message>
        <source>列出今天或--day的日期的日志</source>
        <translation>list the journal of today or of the day of --day</translation>
    </message>
    <message>
        <source>数据库地址</source>
        <translation>DATABASE</translation>
    </message>
    <message>
        <source>把文件的内容搬到服务器</source>
        <translation>move a file&apos;s contents to a server</translation>
    </message>
    <message>
        <source>类别 文件...</source>
        <translation>KIND FILE...</translation>
    </message>
    <message>
        <source>导入证券、收盘价、账户、用户、审批链、持仓、休市日或计划</source>
        <translation>import securities, closing prices, accounts, users, approval chains, positions, closures or plans</translation>
    </message>
    <message>
        <source>类别 [文件]</source>
        <translation>KIND [FILE]</translation>
    </message>
    <message>
        <source>把一类内容导出为CSV、XLSX或JSON</source>
        <translation>export a kind of data as CSV, XLSX or JSON</translation>
    </message>
    <message>
        <source>导入休市表，延长交易日历</source>
        <translation>import closures, which extend the trade calendar</translation>
    </message>
    <message>
        <source>在服务器的数据库中建表</source>
        <translation>create the tables in a server&apos;s database</translation>
    </message>
    <message>
        <source>升级服务器的数据库</source>
        <translation>upgrade a server&apos;s database</translation>
    </message>
    <message>
        <source>用户编号 姓名</source>
        <translation>USER NAME</translation>
    </message>
    <message>
        <source>新建用户和登录角色</source>
        <translation>create a user and a login role</translation>
    </message>
    <message>
        <source>用户编号 账户 指令类型...</source>
        <translation>USER ACCOUNT TYPE...</translation>
    </message>
    <message>
        <source>分配账户和指令类型</source>
        <translation>assign an account and instruction types</translation>
    </message>
    <message>
        <source>用户编号 [账户 [指令类型...]]</source>
        <translation>USER [ACCOUNT [TYPE...]]</translation>
    </message>
    <message>
        <source>停用用户，或收回账户或指令类型</source>
        <translation>disable a user, or take away an account or instruction types</translation>
    </message>
    <message>
        <source>账户 [名称=取值...]</source>
        <translation>ACCOUNT [NAME=VALUE...]</translation>
    </message>
    <message>
        <source>新建或修改账户</source>
        <translation>create or change an account</translation>
    </message>
    <message>
        <source>账户 指令类型 名称=姓名,...</source>
        <translation>ACCOUNT TYPE NAME=USER,...</translation>
    </message>
    <message>
        <source>设置执行人和复核人</source>
        <translation>set executors and reviewers</translation>
    </message>
    <message>
        <source>账户 元|unknown</source>
        <translation>ACCOUNT YUAN|unknown</translation>
    </message>
    <message>
        <source>设置可用资金</source>
        <translation>set the available cash</translation>
    </message>
    <message>
        <source>账户|usual 名称=取值...</source>
        <translation>ACCOUNT|usual NAME=VALUE...</translation>
    </message>
    <message>
        <source>设置限额</source>
        <translation>set limits</translation>
    </message>
    <message>
        <source>列出用户、权限、账户和限额</source>
        <translation>list users, rights, accounts and limits</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>；
</source>
        <translation>;
</translation>
    </message>
    <message>
        <source>交易日历到%1</source>
        <translation>The trade calendar extends to %1</translation>
    </message>
    <message>
        <source>数据库已备份到%1</source>
        <translation>Database copied to %1</translation>
    </message>
    <message>
        <source>删除：%1</source>
        <translation>Removed: %1</translation>
    </message>
    <message>
        <source>%1：将删除%2项，输入yes继续</source>
        <translation>%1: removes %2 entries, type yes to continue</translation>
    </message>
    <message>
        <source>已导出到%1</source>
        <translation>Exported to %1</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>计划%1已被修改</source>
        <translation>Plan %1 was changed</translation>
    </message>
    <message>
        <source>您打开计划后，%1于%2保存了第%3版。请核对不同之处，选择如何继续。</source>
        <translation>After you opened the plan, %1 saved version %3 at %2. Please compare and choose how to continue.</translation>
    </message>
    <message>
        <source>不同的字段</source>
        <translation>Fields that differ</translation>
    </message>
    <message>
        <source>字段</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>您打开时</source>
        <translation>When you opened it</translation>
    </message>
    <message>
        <source>现在保存的</source>
        <translation>Stored now</translation>
    </message>
    <message>
        <source>您填写的</source>
        <translation>Your input</translation>
    </message>
    <message>
        <source>读取新版本</source>
        <translation>Read the new version</translation>
    </message>
    <message>
        <source>保留我填写的</source>
        <translation>Keep my input</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>DateField</name>
    <message>
        <source>打开日历</source>
        <translation>Open the calendar</translation>
    </message>
    <message>
        <source>日历</source>
        <translation> calendar</translation>
    </message>
    <message>
        <source>周一</source>
        <translation>Mon</translation>
    </message>
    <message>
        <source>周二</source>
        <translation>Tue</translation>
    </message>
    <message>
        <source>周三</source>
        <translation>Wed</translation>
    </message>
    <message>
        <source>周四</source>
        <translation>Thu</translation>
    </message>
    <message>
        <source>周五</source>
        <translation>Fri</translation>
    </message>
    <message>
        <source>周六</source>
        <translation>Sat</translation>
    </message>
    <message>
        <source>周日</source>
        <translation>Sun</translation>
    </message>
    <message>
        <source>，按↑键或点击此处改为%1</source>
        <translation>; press Up or click here for %1</translation>
    </message>
</context>
<context>
    <name>DayWindows</name>
    <message>
        <source>提醒</source>
        <translation>Alerts</translation>
    </message>
    <message>
        <source>日志</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>提醒 %1</source>
        <translation>Alerts: %1</translation>
    </message>
    <message>
        <source>提醒（%1）</source>
        <translation>Alerts (%1)</translation>
    </message>
</context>
<context>
    <name>DraftBar</name>
    <message>
        <source>继续填写</source>
        <translation>Continue</translation>
    </message>
    <message>
        <source>丢弃</source>
        <translation>Discard</translation>
    </message>
    <message>
        <source>上次有%1个表单未提交：%2</source>
        <translation>%1 forms were not sent last time: %2</translation>
    </message>
</context>
<context>
    <name>EditorDialog</name>
    <message>
        <source>新建计划</source>
        <translation>New plan</translation>
    </message>
    <message>
        <source>修改计划 %1</source>
        <translation>Edit plan %1</translation>
    </message>
    <message>
        <source>复制计划 %1</source>
        <translation>Copy plan %1</translation>
    </message>
    <message>
        <source>计划尚未提交，关闭后填写的内容将丢失，是否关闭？</source>
        <translation>The plan has not been submitted and will be lost. Close it?</translation>
    </message>
    <message>
        <source>应为%1的整数倍</source>
        <translation>Should be a multiple of %1</translation>
    </message>
    <message>
        <source>以下内容已不能恢复，请核对：
%1</source>
        <translation>The following could not be restored, please check:
%1</translation>
    </message>
    <message>
        <source>更新列表</source>
        <translation>Update the lists</translation>
    </message>
    <message>
        <source>账户、权限或证券已有变化，本表单仍是原来的列表。</source>
        <translation>Accounts, rights or securities have changed; this form still has the former lists.</translation>
    </message>
</context>
<context>
    <name>EditorForms</name>
    <message>
        <source>%1个计划尚未提交，关闭后填写的内容将丢失，是否关闭？</source>
        <translation>%1 plans have not been sent and will be lost. Close them?</translation>
    </message>
</context>
<context>
    <name>Error</name>
    <message>
        <source>只能输入整数</source>
        <translation>Only whole numbers</translation>
    </message>
    <message>
        <source>最多输入%1位小数</source>
        <translation>At most %1 decimals</translation>
    </message>
    <message>
        <source>数字不完整</source>
        <translation>The number is incomplete</translation>
    </message>
    <message>
        <source>不能小于%1</source>
        <translation>Cannot be less than %1</translation>
    </message>
    <message>
        <source>不能大于%1</source>
        <translation>Cannot be more than %1</translation>
    </message>
    <message>
        <source>%1早于最早可选日期%2</source>
        <translation>%1 is earlier than the first possible date, %2</translation>
    </message>
    <message>
        <source>%1晚于最晚可选日期%2</source>
        <translation>%1 is later than the last possible date, %2</translation>
    </message>
    <message>
        <source>%1不是交易日，不能选择</source>
        <translation>%1 is not a trading day and cannot be chosen</translation>
    </message>
    <message>
        <source>结束日期不能早于开始日期%1</source>
        <translation>The last date cannot be earlier than the first, %1</translation>
    </message>
    <message>
        <source>无法识别“%1”，请输入数字，例如50000、50,000或5万</source>
        <translation>“%1” is not understood; type a number, for example 50000, 50,000 or 5万</translation>
    </message>
    <message>
        <source>“%1”中的逗号有歧义，千分位须每三位一个，小数点请用“.”</source>
        <translation>The comma in “%1” is ambiguous: groups have three digits, and the decimal point is “.”</translation>
    </message>
    <message>
        <source>无法识别单位“%1”，可用千、万、百万、千万、亿</source>
        <translation>The unit “%1” is not understood; 千, 万, 百万, 千万 and 亿 are</translation>
    </message>
    <message>
        <source>此处以%1为单位，不能用%2</source>
        <translation>This field is in %1, not in %2</translation>
    </message>
    <message>
        <source>请先选择证券，才能以手为单位</source>
        <translation>Choose a security before typing lots</translation>
    </message>
    <message>
        <source>该证券不以手为单位交易，请输入%1数</source>
        <translation>This security has no lots; type the number of %1</translation>
    </message>
    <message>
        <source>无法识别“%1”，请输入日期，例如2026-12-04、1204、12-4或+5</source>
        <translation>“%1” is not understood; type a date, for example 2026-12-04, 1204, 12-4 or +5</translation>
    </message>
    <message>
        <source>没有“%1”这一天</source>
        <translation>There is no day “%1”</translation>
    </message>
    <message>
        <source>可选的交易日不足%1个</source>
        <translation>There are fewer than %1 trading days to choose from</translation>
    </message>
    <message>
        <source>%1的输入无法使用：%2</source>
        <translation>The text of %1 cannot be used: %2</translation>
    </message>
    <message>
        <source>数据库未打开</source>
        <translation>The database is not open</translation>
    </message>
    <message>
        <source>数据库正被其他程序或一次导入占用，请稍后再试</source>
        <translation>The database is used by another program or an import, please try again later</translation>
    </message>
    <message>
        <source>数据库文件只读，无法写入</source>
        <translation>The database file is read-only</translation>
    </message>
    <message>
        <source>数据库文件已损坏</source>
        <translation>The database file is damaged</translation>
    </message>
    <message>
        <source>磁盘空间不足，无法写入数据库</source>
        <translation>The disk is full, the database cannot be written</translation>
    </message>
    <message>
        <source>该文件不是数据库文件</source>
        <translation>The file is not a database</translation>
    </message>
    <message>
        <source>读写数据库文件出错（代码%1）</source>
        <translation>The database file could not be read or written (code %1)</translation>
    </message>
    <message>
        <source>数据库操作失败：%1</source>
        <translation>The database operation failed: %1</translation>
    </message>
    <message>
        <source>数据库的内容过大，无法读写</source>
        <translation>The contents of the database are too large</translation>
    </message>
    <message>
        <source>数据库文件已被删除、替换、覆盖、移动或链接，不能继续使用，请核对文件后重新启动</source>
        <translation>The database file was deleted, replaced, overwritten, moved or linked and cannot be used any more. Please check the file and restart</translation>
    </message>
    <message>
        <source>数据库事务已中止，内容未保存</source>
        <translation>The transaction was aborted, nothing was stored</translation>
    </message>
    <message>
        <source>数据库的编号已用尽，无法新建</source>
        <translation>The numbers of the database are exhausted</translation>
    </message>
    <message>
        <source>无法打开数据库“%1”：%2</source>
        <translation>Cannot open the database &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>未指定数据库文件</source>
        <translation>No database file was given</translation>
    </message>
    <message>
        <source>该路径是文件夹</source>
        <translation>The path is a folder</translation>
    </message>
    <message>
        <source>无法创建所在文件夹</source>
        <translation>The folder cannot be created</translation>
    </message>
    <message>
        <source>该文件属于其他程序</source>
        <translation>The file belongs to another program</translation>
    </message>
    <message>
        <source>数据库版本%1高于本程序支持的版本%2，请升级程序</source>
        <translation>The database has version %1, newer than version %2 that this program supports. Please upgrade the program</translation>
    </message>
    <message>
        <source>数据库无法启用预写日志</source>
        <translation>The database cannot use a write-ahead log</translation>
    </message>
    <message>
        <source>数据库所在的文件夹不可写，无法建立预写日志</source>
        <translation>The folder of the database is not writable, a write-ahead log cannot be created</translation>
    </message>
    <message>
        <source>升级数据库失败，%1</source>
        <translation>The database could not be upgraded: %1</translation>
    </message>
    <message>
        <source>数据库含有来历不明的%1“%2”</source>
        <translation>The database has an unknown %1 &quot;%2&quot;</translation>
    </message>
    <message>
        <source>数据库的%1“%2”被改动过</source>
        <translation>The %1 &quot;%2&quot; of the database was altered</translation>
    </message>
    <message>
        <source>数据库缺少%1“%2”</source>
        <translation>The database lacks the %1 &quot;%2&quot;</translation>
    </message>
    <message>
        <source>检查数据库超过%1秒</source>
        <translation>The check of the database took more than %1 seconds</translation>
    </message>
    <message>
        <source>数据库文件超过%1 GiB</source>
        <translation>The database file is larger than %1 GiB</translation>
    </message>
    <message>
        <source>无法备份数据库“%1”：%2</source>
        <translation>Cannot back up the database &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>文件%1已存在</source>
        <translation>The file %1 exists</translation>
    </message>
    <message>
        <source>数据库地址不正确，应为postgresql://用户@主机:端口/库名或service=服务名</source>
        <translation>Malformed location of the database, expected postgresql://USER@HOST:PORT/NAME or service=NAME</translation>
    </message>
    <message>
        <source>数据库地址中不能写密码，请改用密码文件、服务文件或环境变量</source>
        <translation>A location must not contain a password. Use a password file, a service file or the environment</translation>
    </message>
    <message>
        <source>没有安装Qt的PostgreSQL驱动（QPSQL），无法连接数据库服务器</source>
        <translation>Qt&apos;s PostgreSQL driver (QPSQL) is not installed</translation>
    </message>
    <message>
        <source>无法连接数据库服务器（%1）</source>
        <translation>Cannot connect to the database server (%1)</translation>
    </message>
    <message>
        <source>与数据库服务器的连接已断开</source>
        <translation>The connection to the database server is lost</translation>
    </message>
    <message>
        <source>内容正在被其他人修改，请稍后再试</source>
        <translation>Someone else is changing this, please try again later</translation>
    </message>
    <message>
        <source>数据库服务器未能及时完成操作，请稍后再试</source>
        <translation>The database server did not answer in time, please try again later</translation>
    </message>
    <message>
        <source>相同的内容已经保存</source>
        <translation>The same has already been stored</translation>
    </message>
    <message>
        <source>该数据库尚未初始化，请由管理员运行plandesk admin init</source>
        <translation>The database is not set up. An administrator has to run plandesk admin init</translation>
    </message>
    <message>
        <source>数据库版本%1低于本程序要求的版本%2，请由管理员运行plandesk admin migrate</source>
        <translation>The database has version %1, older than version %2 that this program requires. An administrator has to run plandesk admin migrate</translation>
    </message>
    <message>
        <source>数据库服务器拒绝了该操作，当前用户没有权限</source>
        <translation>The database server refused the operation, the user lacks the right</translation>
    </message>
    <message>
        <source>在数据库服务器上，登录的角色“%1”就是用户，不能另行指定用户</source>
        <translation>On a database server, the role &quot;%1&quot; is the user, another one cannot be given</translation>
    </message>
    <message>
        <source>数据库在服务器上，请由管理员备份</source>
        <translation>The database is on a server, an administrator has to back it up</translation>
    </message>
    <message>
        <source>管理命令只用于服务器上的数据库，请用--database指定它的地址</source>
        <translation>Administration needs a database on a server, given by --database</translation>
    </message>
    <message>
        <source>角色“%1”不是该数据库的管理员</source>
        <translation>The role &quot;%1&quot; is not an administrator of the database</translation>
    </message>
    <message>
        <source>角色“%1”没有CREATEROLE属性，不能建立或停用登录角色</source>
        <translation>The role &quot;%1&quot; lacks CREATEROLE and cannot manage login roles</translation>
    </message>
    <message>
        <source>用户编号“%1”不能作为登录角色，须为1到63字节，不以pg_开头，首尾没有空格，不含控制字符</source>
        <translation>The user id &quot;%1&quot; cannot be a login role: 1 to 63 bytes, not starting with pg_, without outer blanks and control characters</translation>
    </message>
    <message>
        <source>角色“%1”在服务器上有管理权限，不能作为用户</source>
        <translation>The role &quot;%1&quot; has administrative powers on the server and cannot be a user</translation>
    </message>
    <message>
        <source>用户“%1”已存在，姓名为“%2”</source>
        <translation>The user &quot;%1&quot; exists with the name &quot;%2&quot;</translation>
    </message>
    <message>
        <source>姓名“%1”属于用户“%2”，计划按姓名分配，姓名不能相同</source>
        <translation>The name &quot;%1&quot; belongs to the user &quot;%2&quot;. Plans are assigned by name, names must differ</translation>
    </message>
    <message>
        <source>%1为空，或首尾有空格，或含控制字符</source>
        <translation>%1 is empty, or has outer blanks or control characters</translation>
    </message>
    <message>
        <source>标准输入的第一行没有密码</source>
        <translation>The first line of the standard input has no password</translation>
    </message>
    <message>
        <source>新账户“%1”缺少%2</source>
        <translation>The new account &quot;%1&quot; lacks %2</translation>
    </message>
    <message>
        <source>“%1”不是可用的“名称=取值”，名称有：%2</source>
        <translation>&quot;%1&quot; is not a usable NAME=VALUE, names are: %2</translation>
    </message>
    <message>
        <source>命令move-to搬移文件的内容，--database应是文件</source>
        <translation>The command move-to moves the contents of a file, --database must be a file</translation>
    </message>
    <message>
        <source>命令move-to的参数应是服务器上的数据库地址</source>
        <translation>The argument of the command move-to must be a database on a server</translation>
    </message>
    <message>
        <source>表%1不能搬移，没有保存任何内容：%2</source>
        <translation>The table %1 cannot be moved, nothing was stored: %2</translation>
    </message>
    <message>
        <source>服务器的数据库已有其他内容，没有搬移：表%1%2</source>
        <translation>The database on the server has other contents, nothing was moved: table %1%2</translation>
    </message>
    <message>
        <source>核对不一致，没有保存任何内容：表%1%2</source>
        <translation>The comparison failed, nothing was stored: table %1%2</translation>
    </message>
    <message>
        <source>无法确认是否已保存（%1），请再运行一次，已保存时只核对</source>
        <translation>Whether it was stored is unknown (%1). Please run the command again; if it was stored, it only compares</translation>
    </message>
    <message>
        <source>计划内容为空</source>
        <translation>The plan is empty</translation>
    </message>
    <message>
        <source>计划字段“%1”的值不是文本</source>
        <translation>The value of the plan&apos;s field &quot;%1&quot; is not a text</translation>
    </message>
    <message>
        <source>计划字段“%1”未知，不能保存</source>
        <translation>The plan&apos;s field &quot;%1&quot; is unknown and cannot be stored</translation>
    </message>
    <message>
        <source>计划字段“%1”超过%2个字符</source>
        <translation>The plan&apos;s field &quot;%1&quot; is longer than %2 characters</translation>
    </message>
    <message>
        <source>计划字段“%1”含有无法保存的字符</source>
        <translation>The plan&apos;s field &quot;%1&quot; has characters that cannot be stored</translation>
    </message>
    <message>
        <source>计划“%1”不存在</source>
        <translation>The plan &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>不知道对计划“%1”的修改以哪个版本为基础，请重新打开计划后再修改</source>
        <translation>The version that the change of plan &quot;%1&quot; is based on is unknown. Please open the plan again</translation>
    </message>
    <message>
        <source>计划“%1”已有更新的版本，请重新打开后再修改</source>
        <translation>The plan &quot;%1&quot; has a newer version. Please open it again</translation>
    </message>
    <message>
        <source>计划已被%1于%2修改（%3），本次修改未保存，请核对后重新提交</source>
        <translation>The plan was changed by %1 at %2 (%3). Your change was not stored. Please check and send it again</translation>
    </message>
    <message>
        <source>无法确认是否已保存（%1），再次提交时会先核对，不会重复保存</source>
        <translation>Whether it was stored is unknown (%1). Sent again, it is compared first and not stored twice</translation>
    </message>
    <message>
        <source>计划%1%2，不能变为%3</source>
        <translation>The plan %1 is %2 and cannot become %3</translation>
    </message>
    <message>
        <source>计划%1%2，不能修改</source>
        <translation>The plan %1 is %2 and cannot be changed</translation>
    </message>
    <message>
        <source>请填写停止的原因</source>
        <translation>Please enter the reason</translation>
    </message>
    <message>
        <source>原因最多%1个字</source>
        <translation>The reason has at most %1 characters</translation>
    </message>
    <message>
        <source>指令%1不存在</source>
        <translation>The instruction %1 does not exist</translation>
    </message>
    <message>
        <source>证券“%1”的收盘价已损坏</source>
        <translation>The closing prices of the security &quot;%1&quot; are damaged</translation>
    </message>
    <message>
        <source>计划“%1”的内容已损坏</source>
        <translation>The contents of the plan &quot;%1&quot; are damaged</translation>
    </message>
    <message>
        <source>历史记录%1已损坏</source>
        <translation>The history entry %1 is damaged</translation>
    </message>
    <message>
        <source>计划“%1”的%2“%3”不存在</source>
        <translation>In the plan &quot;%1&quot;, the %2 &quot;%3&quot; does not exist</translation>
    </message>
    <message>
        <source>计划“%1”的%2“%3”无效</source>
        <translation>In the plan &quot;%1&quot;, the %2 &quot;%3&quot; is invalid</translation>
    </message>
    <message>
        <source>指令%1的内容“%2”无效</source>
        <translation>The value &quot;%2&quot; of the instruction %1 is invalid</translation>
    </message>
    <message>
        <source>证券“%1”的价格精度、数量系数、步长或涨跌幅超出范围</source>
        <translation>The price decimals, quantity factor, step or price band of the security &quot;%1&quot; are out of range</translation>
    </message>
    <message>
        <source>账户“%1”的证券“%2”的持仓无效</source>
        <translation>The position of the account &quot;%1&quot; in the security &quot;%2&quot; is invalid</translation>
    </message>
    <message>
        <source>客户“%1”对协议“%2”的签署无效</source>
        <translation>The signature of the client &quot;%1&quot; for the agreement &quot;%2&quot; is invalid</translation>
    </message>
    <message>
        <source>账户“%1”的限额例外%2无效</source>
        <translation>The exception %2 of the limits of the account &quot;%1&quot; is invalid</translation>
    </message>
    <message>
        <source>样本市场的证券数量须在%1到%2之间</source>
        <translation>The sample market has between %1 and %2 securities</translation>
    </message>
    <message>
        <source>样本市场缺少最后一个收盘日</source>
        <translation>The sample market lacks the last close</translation>
    </message>
    <message>
        <source>样本市场的生成已取消</source>
        <translation>The generation of the sample market was cancelled</translation>
    </message>
    <message>
        <source>交易日历不包含今天（%1），无法生成示例行情</source>
        <translation>Today (%1) is not in the trade calendar, the sample market cannot be generated</translation>
    </message>
    <message>
        <source>用户“%1”不存在</source>
        <translation>The user &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>尚未登录，无法处理计划</source>
        <translation>Not logged in: plans cannot be processed</translation>
    </message>
    <message>
        <source>尚未登录，无法查询均价</source>
        <translation>Not logged in: averages cannot be queried</translation>
    </message>
    <message>
        <source>尚未登录，无法查询交易日</source>
        <translation>Not logged in: trade days cannot be queried</translation>
    </message>
    <message>
        <source>尚未登录，无法下达指令</source>
        <translation>Not logged in: nothing can be issued</translation>
    </message>
    <message>
        <source>尚未登录，无法签署协议</source>
        <translation>Not logged in: agreements cannot be signed</translation>
    </message>
    <message>
        <source>协议“%1”不存在</source>
        <translation>The agreement &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>请选择签署协议的客户</source>
        <translation>Please choose the client who signs</translation>
    </message>
    <message>
        <source>客户“%1”不属于当前用户</source>
        <translation>The client &quot;%1&quot; does not belong to the user</translation>
    </message>
    <message>
        <source>休市表第1行不是表头“%1”</source>
        <translation>Line 1 of the table of closures is not the heading &quot;%1&quot;</translation>
    </message>
    <message>
        <source>休市表第%1行%2</source>
        <translation>Line %1 of the table of closures: %2</translation>
    </message>
    <message>
        <source>应有4列，实有%1列</source>
        <translation>4 columns expected, not %1</translation>
    </message>
    <message>
        <source>日期“%1”无效</source>
        <translation>The date &quot;%1&quot; is invalid</translation>
    </message>
    <message>
        <source>没有市场“%1”的交易日历</source>
        <translation>There is no trade calendar of the market &quot;%1&quot;</translation>
    </message>
    <message>
        <source>交易日历只到%1为止，无法确定%2之后的交易日</source>
        <translation>The trade calendar ends on %1, trade days after %2 are unknown</translation>
    </message>
    <message>
        <source>市场“%1”缺少%2年的休市安排</source>
        <translation>The closures of the market &quot;%1&quot; in %2 are missing</translation>
    </message>
    <message>
        <source>无法使用休市表“%1”：%2</source>
        <translation>Cannot use the table of closures &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>交易日历只到%1，还剩%2天，请用import-closures命令导入之后的休市安排</source>
        <translation>The trade calendar ends on %1, in %2 days. Please import later closures by the command import-closures</translation>
    </message>
    <message>
        <source>交易日历已于%1结束，请用import-closures命令导入之后的休市安排</source>
        <translation>The trade calendar ended on %1. Please import later closures by the command import-closures</translation>
    </message>
    <message>
        <source>新建计划不能带有计划编号</source>
        <translation>A new plan must not have an id</translation>
    </message>
    <message>
        <source>缺少计划扩展信息</source>
        <translation>The other parameters of the plan are missing</translation>
    </message>
    <message>
        <source>计划扩展信息不是有效的JSON对象</source>
        <translation>The other parameters of the plan are not a valid JSON object</translation>
    </message>
    <message>
        <source>%1“%2”未知</source>
        <translation>%1 &quot;%2&quot; is unknown</translation>
    </message>
    <message>
        <source>未指定账户</source>
        <translation>No account was given</translation>
    </message>
    <message>
        <source>账户“%1”不存在</source>
        <translation>The account &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>没有账户“%1”的下单权限</source>
        <translation>You may not trade in the account &quot;%1&quot;</translation>
    </message>
    <message>
        <source>未指定证券</source>
        <translation>No security was given</translation>
    </message>
    <message>
        <source>证券“%1”不存在</source>
        <translation>The security &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>证券“%1”不在市场“%2”交易</source>
        <translation>The security &quot;%1&quot; is not traded on the market &quot;%2&quot;</translation>
    </message>
    <message>
        <source>账户“%1”在该证券的市场没有证券账户</source>
        <translation>The account &quot;%1&quot; has no securities account on the market of the security</translation>
    </message>
    <message>
        <source>证券账户“%1”不属于该账户</source>
        <translation>The securities account &quot;%1&quot; does not belong to the account</translation>
    </message>
    <message>
        <source>%1“%2”不是正整数</source>
        <translation>%1 &quot;%2&quot; is not a positive whole number</translation>
    </message>
    <message>
        <source>%1“%2”不是整数</source>
        <translation>%1 &quot;%2&quot; is not a whole number</translation>
    </message>
    <message>
        <source>%1“%2”不是正数</source>
        <translation>%1 &quot;%2&quot; is not a positive number</translation>
    </message>
    <message>
        <source>%1“%2”不是数字</source>
        <translation>%1 &quot;%2&quot; is not a number</translation>
    </message>
    <message>
        <source>减持占比“%1”不在0到1之间</source>
        <translation>The ratio &quot;%1&quot; is not between 0 and 1</translation>
    </message>
    <message>
        <source>%1公式不正确：%2</source>
        <translation>The formula of %1 is wrong: %2</translation>
    </message>
    <message>
        <source>%1无效</source>
        <translation>%1 is invalid</translation>
    </message>
    <message>
        <source>%1%2不是交易日</source>
        <translation>%1 %2 is not a trade day</translation>
    </message>
    <message>
        <source>%1%2不在交易日历之内</source>
        <translation>%1 %2 is not in the trade calendar</translation>
    </message>
    <message>
        <source>结束日期早于开始日期</source>
        <translation>The end date is before the start date</translation>
    </message>
    <message>
        <source>备注超过%1个字符</source>
        <translation>The remark is longer than %1 characters</translation>
    </message>
    <message>
        <source>%1不支持修改</source>
        <translation>%1 cannot be changed</translation>
    </message>
    <message>
        <source>计划已开始执行，开始日期不支持修改</source>
        <translation>The plan has started, its start date cannot be changed</translation>
    </message>
    <message>
        <source>开始日期%1早于今天</source>
        <translation>The start date %1 is before today</translation>
    </message>
    <message>
        <source>计划的创建人“%1”不是当前用户</source>
        <translation>The plan&apos;s creator &quot;%1&quot; is not the user</translation>
    </message>
    <message>
        <source>账户“%1”不能使用指令类型“%2”</source>
        <translation>The account &quot;%1&quot; cannot use the instruction type &quot;%2&quot;</translation>
    </message>
    <message>
        <source>指令类型“%1”只能卖出</source>
        <translation>The instruction type &quot;%1&quot; can only sell</translation>
    </message>
    <message>
        <source>账户“%1”的指令须经复核，不能主动管理</source>
        <translation>Instructions of the account &quot;%1&quot; must be reviewed</translation>
    </message>
    <message>
        <source>减持计划不能买入</source>
        <translation>A reduction cannot buy</translation>
    </message>
    <message>
        <source>减持计划未指定执行人</source>
        <translation>The reduction has no executor</translation>
    </message>
    <message>
        <source>“%1”不是该账户的执行人</source>
        <translation>&quot;%1&quot; is not an executor of the account</translation>
    </message>
    <message>
        <source>该账户的计划不能分配给“%1”</source>
        <translation>Plans of the account cannot be assigned to &quot;%1&quot;</translation>
    </message>
    <message>
        <source>按金额的计划缺少指令单类型</source>
        <translation>A plan by amount lacks its order type</translation>
    </message>
    <message>
        <source>目标低于该计划已成交和在下达的总和%1</source>
        <translation>The target is below %1, the sum already filled and being issued</translation>
    </message>
    <message>
        <source>按最近的收盘价得不出价格：%1</source>
        <translation>The latest close gives no price: %1</translation>
    </message>
    <message>
        <source>没有账户的交易限额</source>
        <translation>The account has no trade limits</translation>
    </message>
    <message>
        <source>数量%1超过账户的最大数量%2</source>
        <translation>The quantity %1 exceeds the account&apos;s maximum %2</translation>
    </message>
    <message>
        <source>金额%1元超过账户的最大金额%2元</source>
        <translation>The amount of %1 yuan exceeds the account&apos;s maximum of %2 yuan</translation>
    </message>
    <message>
        <source>价格%1不在账户允许的%2至%3之间</source>
        <translation>The price %1 is not between %2 and %3, which the account allows</translation>
    </message>
    <message>
        <source>证券“%1”没有收盘价</source>
        <translation>The security &quot;%1&quot; has no closing price</translation>
    </message>
    <message>
        <source>价格不足一个最小变动单位或过大</source>
        <translation>The price is below one tick or too large</translation>
    </message>
    <message>
        <source>当日的份额不足一手</source>
        <translation>The share of the day is below one lot</translation>
    </message>
    <message>
        <source>计划已完成，剩余不足一手</source>
        <translation>The plan is completed, less than one lot is left</translation>
    </message>
    <message>
        <source>可卖数量不足一手</source>
        <translation>Less than one lot can be sold</translation>
    </message>
    <message>
        <source>不在该市场的委托时间%1至%2内</source>
        <translation>Outside the market&apos;s trading hours from %1 to %2</translation>
    </message>
    <message>
        <source>%1不是今天（%2），只能模拟下达</source>
        <translation>%1 is not today (%2) and can only be simulated</translation>
    </message>
    <message>
        <source>只有信用账户可以在信用交易中转股</source>
        <translation>Only a credit account can convert in credit trading</translation>
    </message>
    <message>
        <source>债券转股只能以卖出方向申报</source>
        <translation>A conversion must be a sale</translation>
    </message>
    <message>
        <source>证券“%1”不是可转换债券</source>
        <translation>The security &quot;%1&quot; is not a convertible bond</translation>
    </message>
    <message>
        <source>账户没有可用的“%1”持仓</source>
        <translation>The account has no available position in &quot;%1&quot;</translation>
    </message>
    <message>
        <source>多余的参数：%1</source>
        <translation>Unexpected argument: %1</translation>
    </message>
    <message>
        <source>缺少目录</source>
        <translation>The folder is missing</translation>
    </message>
    <message>
        <source>选项--%1缺少取值</source>
        <translation>The option --%1 lacks its value</translation>
    </message>
    <message>
        <source>没有皮肤“%1”，可选：%2</source>
        <translation>There is no skin &quot;%1&quot;, choose from %2</translation>
    </message>
    <message>
        <source>没有语言“%1”，可选：%2</source>
        <translation>There is no language &quot;%1&quot;, choose from %2</translation>
    </message>
    <message>
        <source>日期“%1”无效，格式为yyyy-MM-dd</source>
        <translation>The date &quot;%1&quot; is invalid, the format is yyyy-MM-dd</translation>
    </message>
    <message>
        <source>没有可用的显示设备；可用plandesk-walkthrough或--issue-day在没有窗口时运行</source>
        <translation>There is no display. plandesk-walkthrough and --issue-day run without a window</translation>
    </message>
    <message>
        <source>不能读取翻译文件%1</source>
        <translation>Cannot read the translation %1</translation>
    </message>
    <message>
        <source>命令%1应有参数：%2</source>
        <translation>The command %1 needs arguments: %2</translation>
    </message>
    <message>
        <source>选项--%1只用于%2</source>
        <translation>The option --%1 is only for %2</translation>
    </message>
    <message>
        <source>命令%2没有选项--%1</source>
        <translation>The command %2 has no option --%1</translation>
    </message>
    <message>
        <source>无法写入文件%1</source>
        <translation>Cannot write the file %1</translation>
    </message>
    <message>
        <source>数据库%1中已有%2只证券，--securities只用于新建的数据库</source>
        <translation>The database %1 has %2 securities; --securities is only for a new database</translation>
    </message>
    <message>
        <source>%2（第%1个字符）</source>
        <translation>%2 (character %1)</translation>
    </message>
    <message>
        <source>公式为空</source>
        <translation>The formula is empty</translation>
    </message>
    <message>
        <source>公式超过%1个字符</source>
        <translation>The formula is longer than %1 characters</translation>
    </message>
    <message>
        <source>括号嵌套超过%1层</source>
        <translation>Parentheses are nested deeper than %1</translation>
    </message>
    <message>
        <source>公式不完整</source>
        <translation>The formula is incomplete</translation>
    </message>
    <message>
        <source>公式语法不正确</source>
        <translation>The formula is malformed</translation>
    </message>
    <message>
        <source>不支持的字符“%1”</source>
        <translation>The character &quot;%1&quot; is not supported</translation>
    </message>
    <message>
        <source>数字“%1”格式不正确</source>
        <translation>The number &quot;%1&quot; is malformed</translation>
    </message>
    <message>
        <source>未知的名称“%1”</source>
        <translation>The name &quot;%1&quot; is unknown</translation>
    </message>
    <message>
        <source>缺少右括号</source>
        <translation>A closing parenthesis is missing</translation>
    </message>
    <message>
        <source>括号位置不正确</source>
        <translation>A parenthesis is misplaced</translation>
    </message>
    <message>
        <source>逗号位置不正确</source>
        <translation>A comma is misplaced</translation>
    </message>
    <message>
        <source>逗号只能用于函数的参数之间</source>
        <translation>Commas are only allowed between arguments</translation>
    </message>
    <message>
        <source>函数的参数过多，应为2个</source>
        <translation>Too many arguments, 2 expected</translation>
    </message>
    <message>
        <source>函数的参数不足，应为2个</source>
        <translation>Too few arguments, 2 expected</translation>
    </message>
    <message>
        <source>除数为零</source>
        <translation>Division by zero</translation>
    </message>
    <message>
        <source>该证券没有“%1”的数据</source>
        <translation>The security has no &quot;%1&quot;</translation>
    </message>
    <message>
        <source>公式的结果不是有限的数</source>
        <translation>The result of the formula is not finite</translation>
    </message>
    <message>
        <source>公式的结果不大于零</source>
        <translation>The result of the formula is not above zero</translation>
    </message>
    <message>
        <source>卖出的数量超过可卖数量，没有保存</source>
        <translation>The quantity sold exceeds the sellable quantity. Nothing was stored</translation>
    </message>
    <message>
        <source>资金不足：可用%1元，一手需要%2元</source>
        <translation>Not enough cash: %1 yuan left, a lot costs %2 yuan</translation>
    </message>
    <message>
        <source>策略文件夹“%1”不存在</source>
        <translation>The strategy folder &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>交易规则表第1行不是表头“%1”</source>
        <translation>Line 1 of the trading rules is not the header &quot;%1&quot;</translation>
    </message>
    <message>
        <source>交易规则表第%1行%2</source>
        <translation>Line %1 of the trading rules: %2</translation>
    </message>
    <message>
        <source>应有8列，实有%1列</source>
        <translation>8 columns expected, %1 found</translation>
    </message>
    <message>
        <source>从%1起，应紧接上一期，从%2起</source>
        <translation>begins on %1, but must follow the period before, on %2</translation>
    </message>
    <message>
        <source>用户%1没有账户，不能新建计划，请联系管理员分配账户</source>
        <translation>User %1 has no account and cannot create plans; ask the administrator for an account</translation>
    </message>
    <message>
        <source>用户%1的账户没有下单权限，或没有相应市场的证券账户，不能新建计划，请联系管理员</source>
        <translation>User %1 has no account with the right to trade and a security account for its market, and cannot create plans; ask the administrator</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>第%1行：%2</source>
        <translation>Line %1: %2</translation>
    </message>
    <message>
        <source>文件不存在或不是普通文件</source>
        <translation>The file does not exist or is no ordinary file</translation>
    </message>
    <message>
        <source>文件无法打开</source>
        <translation>The file cannot be opened</translation>
    </message>
    <message>
        <source>文件超过%1字节</source>
        <translation>The file exceeds %1 bytes</translation>
    </message>
    <message>
        <source>文件不完整</source>
        <translation>The file is incomplete</translation>
    </message>
    <message>
        <source>XML格式不正确</source>
        <translation>The XML is malformed</translation>
    </message>
    <message>
        <source>编码%1不支持</source>
        <translation>The encoding %1 is not supported</translation>
    </message>
    <message>
        <source>含有不是%1编码的字节</source>
        <translation>The file has bytes that are not %1</translation>
    </message>
    <message>
        <source>元素的属性超过%1个</source>
        <translation>An element has more than %1 attributes</translation>
    </message>
    <message>
        <source>元素超过%1个</source>
        <translation>There are more than %1 elements</translation>
    </message>
    <message>
        <source>元素嵌套超过%1层</source>
        <translation>Elements are nested more than %1 levels deep</translation>
    </message>
    <message>
        <source>根元素应为FIXatdl 1.1的Strategies，而不是%1</source>
        <translation>The root element must be Strategies of FIXatdl 1.1, not %1</translation>
    </message>
    <message>
        <source>文件中没有策略</source>
        <translation>The file has no strategy</translation>
    </message>
    <message>
        <source>不允许DTD和实体声明</source>
        <translation>DTDs and entity declarations are not allowed</translation>
    </message>
    <message>
        <source>元素%1中有文字“%2”</source>
        <translation>The element %1 contains the text &quot;%2&quot;</translation>
    </message>
    <message>
        <source>元素%1的文字超过%2个字符</source>
        <translation>The text of the element %1 has more than %2 characters</translation>
    </message>
    <message>
        <source>元素%1超过%2个</source>
        <translation>There are more than %2 elements %1</translation>
    </message>
    <message>
        <source>规则和条件过多</source>
        <translation>There are too many rules and conditions</translation>
    </message>
    <message>
        <source>元素%1未知或不能出现在这里</source>
        <translation>The element %1 is unknown or not allowed here</translation>
    </message>
    <message>
        <source>元素%1的属性%2未知</source>
        <translation>The attribute %2 of the element %1 is unknown</translation>
    </message>
    <message>
        <source>元素%1缺少属性%2</source>
        <translation>The element %1 lacks the attribute %2</translation>
    </message>
    <message>
        <source>类型%1不能有属性%2</source>
        <translation>The type %1 cannot have the attribute %2</translation>
    </message>
    <message>
        <source>属性%1超过%2个字符</source>
        <translation>The attribute %1 has more than %2 characters</translation>
    </message>
    <message>
        <source>属性%1的值“%2”应为%3至%4的整数</source>
        <translation>The value &quot;%2&quot; of the attribute %1 must be a whole number from %3 to %4</translation>
    </message>
    <message>
        <source>属性%1的值“%2”应为true或false</source>
        <translation>The value &quot;%2&quot; of the attribute %1 must be true or false</translation>
    </message>
    <message>
        <source>属性%1的值“%2”不能作为名称</source>
        <translation>The value &quot;%2&quot; of the attribute %1 is no name</translation>
    </message>
    <message>
        <source>属性%1的值“%2”应为%3之一</source>
        <translation>The value &quot;%2&quot; of the attribute %1 must be one of %3</translation>
    </message>
    <message>
        <source>属性trueWireValue与falseWireValue相同</source>
        <translation>trueWireValue and falseWireValue are equal</translation>
    </message>
    <message>
        <source>参数类型“%1”未知</source>
        <translation>The parameter type &quot;%1&quot; is unknown</translation>
    </message>
    <message>
        <source>控件类型“%1”未知</source>
        <translation>The control type &quot;%1&quot; is unknown</translation>
    </message>
    <message>
        <source>时区“%1”未知</source>
        <translation>The time zone &quot;%1&quot; is unknown</translation>
    </message>
    <message>
        <source>策略名“%1”重复</source>
        <translation>The strategy name &quot;%1&quot; is used twice</translation>
    </message>
    <message>
        <source>策略%1有多个StrategyLayout</source>
        <translation>Strategy %1 has several StrategyLayouts</translation>
    </message>
    <message>
        <source>StrategyLayout中没有StrategyPanel</source>
        <translation>The StrategyLayout has no StrategyPanel</translation>
    </message>
    <message>
        <source>%1中没有Edit</source>
        <translation>%1 has no Edit</translation>
    </message>
    <message>
        <source>%1中只能有一个Edit</source>
        <translation>%1 can have only one Edit</translation>
    </message>
    <message>
        <source>Edit不能同时有operator和logicOperator</source>
        <translation>An Edit cannot have both operator and logicOperator</translation>
    </message>
    <message>
        <source>Edit应有operator或logicOperator</source>
        <translation>An Edit must have operator or logicOperator</translation>
    </message>
    <message>
        <source>有logicOperator的Edit中没有Edit</source>
        <translation>An Edit with logicOperator has no Edit</translation>
    </message>
    <message>
        <source>有logicOperator的Edit不能有属性%1</source>
        <translation>An Edit with logicOperator cannot have the attribute %1</translation>
    </message>
    <message>
        <source>Edit应有field2或value之一</source>
        <translation>An Edit must have field2 or value</translation>
    </message>
    <message>
        <source>Edit不能同时有field2和value</source>
        <translation>An Edit cannot have both field2 and value</translation>
    </message>
    <message>
        <source>EditRef引用的Edit“%1”不存在</source>
        <translation>There is no Edit &quot;%1&quot;, to which an EditRef refers</translation>
    </message>
    <message>
        <source>Edit的id“%1”重复</source>
        <translation>The id &quot;%1&quot; of an Edit is used twice</translation>
    </message>
    <message>
        <source>Edit“%1”引用了自己</source>
        <translation>The Edit &quot;%1&quot; refers to itself</translation>
    </message>
    <message>
        <source>参数名“%1”重复</source>
        <translation>The parameter name &quot;%1&quot; is used twice</translation>
    </message>
    <message>
        <source>参数%1的%2“%3”%4</source>
        <translation>The %2 &quot;%3&quot; of parameter %1 %4</translation>
    </message>
    <message>
        <source>参数%1的下限大于上限</source>
        <translation>The lower limit of parameter %1 is above its upper one</translation>
    </message>
    <message>
        <source>参数%1的enumID“%2”重复</source>
        <translation>The enumID &quot;%2&quot; of parameter %1 appears twice</translation>
    </message>
    <message>
        <source>控件ID“%1”重复</source>
        <translation>The control ID &quot;%1&quot; is used twice</translation>
    </message>
    <message>
        <source>参数“%1”有多个控件</source>
        <translation>The parameter &quot;%1&quot; has several controls</translation>
    </message>
    <message>
        <source>控件%1的参数“%2”不存在</source>
        <translation>There is no parameter &quot;%2&quot;, which control %1 has</translation>
    </message>
    <message>
        <source>控件%1的参数%2是常量，不能有控件</source>
        <translation>The parameter %2 of control %1 is a constant and cannot have a control</translation>
    </message>
    <message>
        <source>控件%1的类型与参数%2的类型不符</source>
        <translation>The type of control %1 does not fit that of parameter %2</translation>
    </message>
    <message>
        <source>控件%1的类型不能有ListItem</source>
        <translation>The type of control %1 cannot have a ListItem</translation>
    </message>
    <message>
        <source>控件%1的ListItem“%2”重复</source>
        <translation>The ListItem &quot;%2&quot; of control %1 appears twice</translation>
    </message>
    <message>
        <source>控件%1的enumID“%2”不是参数%3的EnumPair</source>
        <translation>The enumID &quot;%2&quot; of control %1 is no EnumPair of parameter %3</translation>
    </message>
    <message>
        <source>控件%1的步长“%2”应为大于零的数字</source>
        <translation>The step &quot;%2&quot; of control %1 must be a number above zero</translation>
    </message>
    <message>
        <source>控件%1的默认值“%2”%3</source>
        <translation>The initial value &quot;%2&quot; of control %1 %3</translation>
    </message>
    <message>
        <source>校验规则的参数“%1”不存在</source>
        <translation>There is no parameter &quot;%1&quot;, which a rule uses</translation>
    </message>
    <message>
        <source>状态规则的控件“%1”不存在</source>
        <translation>There is no control &quot;%1&quot;, which a state rule uses</translation>
    </message>
    <message>
        <source>%1的比较值“%2”%3</source>
        <translation>The value &quot;%2&quot; with which %1 is compared %3</translation>
    </message>
    <message>
        <source>校验规则的参数%1与%2类型不同，不能比较</source>
        <translation>The parameters %1 and %2 of a rule have different types and cannot be compared</translation>
    </message>
    <message>
        <source>控件%1的状态规则的值“%2”%3</source>
        <translation>The value &quot;%2&quot; of a state rule of control %1 %3</translation>
    </message>
    <message>
        <source>控件%1的状态规则循环改变控件的值</source>
        <translation>State rules change the value of control %1 in a circle</translation>
    </message>
    <message>
        <source>参数%1的类型%2含有日期，计划跨多个交易日，请改用LocalMktTime_t</source>
        <translation>The type %2 of parameter %1 has a date, but a plan lasts several trade days; use LocalMktTime_t</translation>
    </message>
    <message>
        <source>参数%1是二进制数据，无法填写</source>
        <translation>Parameter %1 is binary data and cannot be filled in</translation>
    </message>
    <message>
        <source>参数%1是FIX字段%2，由计划自己填写</source>
        <translation>Parameter %1 is the FIX field %2, which the plan fills in itself</translation>
    </message>
    <message>
        <source>必填参数%1既没有控件也没有constValue</source>
        <translation>The required parameter %1 has neither a control nor a constValue</translation>
    </message>
    <message>
        <source>参数%1没有EnumPair，invertOnWire无法取反</source>
        <translation>Parameter %1 has no EnumPair, so that invertOnWire has nothing to invert</translation>
    </message>
    <message>
        <source>fixMsgType为%1，计划只发出单笔委托（D）</source>
        <translation>fixMsgType is %1; a plan sends single orders (D) only</translation>
    </message>
    <message>
        <source>属性%1大于1，计划只有一只证券</source>
        <translation>The attribute %1 exceeds 1; a plan has one security</translation>
    </message>
    <message>
        <source>RepeatingGroup用于多腿或篮子委托，计划只有一只证券</source>
        <translation>RepeatingGroup is for orders with several legs; a plan has one security</translation>
    </message>
    <message>
        <source>NOT中有多个Edit，含义不明确</source>
        <translation>A NOT has several Edits and is ambiguous</translation>
    </message>
    <message>
        <source>名称“%1”已被其他策略占用，请用providerID区分</source>
        <translation>The name &quot;%1&quot; is taken by another strategy; distinguish them by providerID</translation>
    </message>
    <message>
        <source>忽略处理指令%1</source>
        <translation>The processing instruction %1 is ignored</translation>
    </message>
    <message>
        <source>元素%1应有属性%2</source>
        <translation>The element %1 should have the attribute %2</translation>
    </message>
    <message>
        <source>元素%1中应有%2</source>
        <translation>The element %1 should have %2</translation>
    </message>
    <message>
        <source>属性%2对%1没有作用，忽略</source>
        <translation>The attribute %2 has no effect on %1 and is ignored</translation>
    </message>
    <message>
        <source>属性%1的值“%2”不合标准的写法</source>
        <translation>The value &quot;%2&quot; of the attribute %1 is not written as in the standard</translation>
    </message>
    <message>
        <source>属性%1的值“%2”按“%3”处理</source>
        <translation>The value &quot;%2&quot; of the attribute %1 is taken as &quot;%3&quot;</translation>
    </message>
    <message>
        <source>类型“%1”的写法不合标准</source>
        <translation>The type &quot;%1&quot; is not written as in the standard</translation>
    </message>
    <message>
        <source>元素%1的命名空间不合标准</source>
        <translation>The namespace of the element %1 is not the standard&apos;s</translation>
    </message>
    <message>
        <source>元素%1应在%2之前</source>
        <translation>The element %1 should precede %2</translation>
    </message>
    <message>
        <source>StrategyPanel中同时有Control和StrategyPanel</source>
        <translation>A StrategyPanel has both Controls and StrategyPanels</translation>
    </message>
    <message>
        <source>StrategyLayout中有多个StrategyPanel</source>
        <translation>The StrategyLayout has several StrategyPanels</translation>
    </message>
    <message>
        <source>参数%1的wireValue“%2”重复</source>
        <translation>The wireValue &quot;%2&quot; of parameter %1 appears twice</translation>
    </message>
    <message>
        <source>参数%1既没有控件也没有constValue，不会发出</source>
        <translation>Parameter %1 has neither a control nor a constValue and is never sent</translation>
    </message>
    <message>
        <source>参数%1没有fixTag，文件也没有声明tag957Support</source>
        <translation>Parameter %1 has no fixTag, and the file does not declare tag957Support</translation>
    </message>
    <message>
        <source>没有FIX字段%1的值，不检查这条规则</source>
        <translation>The FIX field %1 has no value here; the rule is not checked</translation>
    </message>
    <message>
        <source>StateRule没有enabled、visible或value</source>
        <translation>The StateRule has no enabled, visible or value</translation>
    </message>
    <message>
        <source>必填</source>
        <translation>is required</translation>
    </message>
    <message>
        <source>固定为%1</source>
        <translation>is fixed to %1</translation>
    </message>
    <message>
        <source>不是可选的值</source>
        <translation>is not one of the values</translation>
    </message>
    <message>
        <source>应为数字</source>
        <translation>must be a number</translation>
    </message>
    <message>
        <source>应为整数</source>
        <translation>must be a whole number</translation>
    </message>
    <message>
        <source>最多%1位小数</source>
        <translation>can have at most %1 decimals</translation>
    </message>
    <message>
        <source>应不小于%1</source>
        <translation>must be at least %1</translation>
    </message>
    <message>
        <source>应不大于%1</source>
        <translation>must be at most %1</translation>
    </message>
    <message>
        <source>应在%1至%2之间</source>
        <translation>must be from %1 to %2</translation>
    </message>
    <message>
        <source>应为时间，如09:30:00</source>
        <translation>must be a time, such as 09:30:00</translation>
    </message>
    <message>
        <source>含有不可见字符</source>
        <translation>contains invisible characters</translation>
    </message>
    <message>
        <source>应为一个字符</source>
        <translation>must be one character</translation>
    </message>
    <message>
        <source>最多%1个字符</source>
        <translation>can have at most %1 characters</translation>
    </message>
    <message>
        <source>至少%1个字符</source>
        <translation>must have at least %1 characters</translation>
    </message>
    <message>
        <source>的写法不正确</source>
        <translation>is malformed</translation>
    </message>
    <message>
        <source>未找到该算法</source>
        <translation>There is no such algorithm</translation>
    </message>
    <message>
        <source>未找到算法【%1】的参数定义！</source>
        <translation>The parameters of the algorithm &quot;%1&quot; are not defined.</translation>
    </message>
    <message>
        <source>算法【%1】不在可选范围内，请重新选择！</source>
        <translation>The algorithm &quot;%1&quot; is not offered; choose another one.</translation>
    </message>
    <message>
        <source>“%1”%2！</source>
        <translation>&quot;%1&quot; %2.</translation>
    </message>
    <message>
        <source>“%1”%3（单位：%2）！</source>
        <translation>&quot;%1&quot; %3 (unit: %2).</translation>
    </message>
    <message>
        <source>含有空字符</source>
        <translation>The text contains a NUL character</translation>
    </message>
    <message>
        <source>编码错误：内容不是%1</source>
        <translation>The contents are not %1</translation>
    </message>
    <message>
        <source>文件的编码是UTF-16，请另存为UTF-8或GB18030</source>
        <translation>The file is in UTF-16; save it as UTF-8 or GB18030</translation>
    </message>
    <message>
        <source>一行超过%1字节，可能缺少右引号</source>
        <translation>A row exceeds %1 bytes, perhaps because of a missing closing quote</translation>
    </message>
    <message>
        <source>一行超过%1列</source>
        <translation>A row has more than %1 columns</translation>
    </message>
    <message>
        <source>引号的位置不正确，含有引号的内容须放在引号内，其中的引号写两次</source>
        <translation>A quote is misplaced; text with quotes must be in quotes, and its own quotes doubled</translation>
    </message>
    <message>
        <source>到文件末尾仍缺少右引号</source>
        <translation>A closing quote is missing up to the end of the file</translation>
    </message>
    <message>
        <source>不是可以读取的XLSX文件</source>
        <translation>This is no readable XLSX file</translation>
    </message>
    <message>
        <source>XLSX文件的内容超过%1字节</source>
        <translation>The contents of the XLSX file exceed %1 bytes</translation>
    </message>
    <message>
        <source>JSON应为对象的数组，对象的值应为文本、数字或布尔值</source>
        <translation>JSON must be an array of objects whose values are texts, numbers or booleans</translation>
    </message>
    <message>
        <source>无法写入表格：%1</source>
        <translation>The table cannot be written: %1</translation>
    </message>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
    <message>
        <source>文件中没有表头</source>
        <translation>The file has no headings</translation>
    </message>
    <message>
        <source>没有列“%1”，可用的列：%2</source>
        <translation>There is no column &quot;%1&quot;; there are: %2</translation>
    </message>
    <message>
        <source>列“%1”重复</source>
        <translation>The column &quot;%1&quot; appears twice</translation>
    </message>
    <message>
        <source>缺少列：%1</source>
        <translation>Columns are missing: %1</translation>
    </message>
    <message>
        <source>没有表头的列有内容</source>
        <translation>A column without heading has contents</translation>
    </message>
    <message>
        <source>%1为空</source>
        <translation>%1 is empty</translation>
    </message>
    <message>
        <source>无法识别日期“%1”，文件中的日期须有年、月、日，例如2026-12-04</source>
        <translation>&quot;%1&quot; is no date; dates in files need year, month and day, for example 2026-12-04</translation>
    </message>
    <message>
        <source>“%1”与第%2行重复</source>
        <translation>&quot;%1&quot; is in line %2 already</translation>
    </message>
    <message>
        <source>证券“%1”已有收盘价、持仓或计划，不能修改%2</source>
        <translation>Security &quot;%1&quot; has closing prices, positions or plans; %2 cannot be changed</translation>
    </message>
    <message>
        <source>“%1”仍在使用，不能删除</source>
        <translation>&quot;%1&quot; is still in use and cannot be removed</translation>
    </message>
    <message>
        <source>证券“%1”缺少交易日%2的收盘价</source>
        <translation>Security &quot;%1&quot; has no closing price of the trade day %2</translation>
    </message>
    <message>
        <source>%2不是证券“%1”的交易日，或不在交易日历之内</source>
        <translation>%2 is not a trade day of the security &quot;%1&quot;, or beyond the trade calendar</translation>
    </message>
    <message>
        <source>证券代码“%1”无效，应为代码、点和市场，例如600000.SH</source>
        <translation>The security code &quot;%1&quot; is invalid; it must be code, point and market, for example 600000.SH</translation>
    </message>
    <message>
        <source>可卖数量%1超过持仓数量%2</source>
        <translation>The sellable quantity %1 exceeds the position of %2</translation>
    </message>
    <message>
        <source>数量%1不是数量系数%2的整数倍</source>
        <translation>The quantity %1 is no multiple of the factor %2</translation>
    </message>
    <message>
        <source>用户“%1”的姓名已用于计划或审批链，不能修改</source>
        <translation>The name of user &quot;%1&quot; is used in plans or approval chains and cannot be changed</translation>
    </message>
    <message>
        <source>有%1处错误，没有导入任何内容</source>
        <translation>There are %1 errors; nothing was imported</translation>
    </message>
    <message>
        <source>没有确认，没有导入任何内容</source>
        <translation>Not confirmed, nothing was imported</translation>
    </message>
    <message>
        <source>没有保存任何内容</source>
        <translation>Nothing was stored</translation>
    </message>
    <message>
        <source>%1不能用--replace</source>
        <translation>%1 cannot be used with --replace</translation>
    </message>
    <message>
        <source>没有类别“%1”，可用：%2</source>
        <translation>There is no kind &quot;%1&quot;; there are: %2</translation>
    </message>
    <message>
        <source>计划“%1”的版本应为%3，文件中为%2，请重新导出后再修改</source>
        <translation>The version of plan &quot;%1&quot; is %3, in the file %2; export it again before changing it</translation>
    </message>
    <message>
        <source>不知道文件“%1”的格式，扩展名应为csv、xlsx或json</source>
        <translation>The format of the file &quot;%1&quot; is unknown; the extension must be csv, xlsx or json</translation>
    </message>
    <message>
        <source>目标总量和目标金额只能有一个</source>
        <translation>A plan has either a target quantity or a target amount</translation>
    </message>
    <message>
        <source>算法参数不是JSON对象</source>
        <translation>The algorithm parameters are no JSON object</translation>
    </message>
    <message>
        <source>状态为“%1”的计划不能新建，只能导入执行中的计划</source>
        <translation>A plan with the state &quot;%1&quot; cannot be created; only active plans can be imported</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message>
        <source>必填参数%1的列表没有可选项</source>
        <translation>The list of the required parameter %1 has no entries</translation>
    </message>
    <message>
        <source>--replace一次只能用于一个文件</source>
        <translation>--replace is for one file at a time</translation>
    </message>
    <message>
        <source>工作表最多有%1行，请导出为CSV</source>
        <translation>A sheet has at most %1 rows, please export to CSV</translation>
    </message>
    <message>
        <source>算法只用于下单模式“算法交易复核”</source>
        <translation>Algorithms are only for the mode &quot;Algorithmic trade review&quot;</translation>
    </message>
    <message>
        <source>下单模式“%1”只用于须经复核的指令类型</source>
        <translation>The mode &quot;%1&quot; is only for instruction types that are reviewed</translation>
    </message>
    <message>
        <source>该计划不能使用下单模式“%1”</source>
        <translation>The plan cannot have the mode &quot;%1&quot;</translation>
    </message>
    <message>
        <source>算法【%1】不支持不限价</source>
        <translation>Algorithm [%1] needs a price limit</translation>
    </message>
    <message>
        <source>算法【%1】没有参数“%2”</source>
        <translation>Algorithm [%1] has no parameter &quot;%2&quot;</translation>
    </message>
    <message>
        <source>数据库服务器只读（例如是备用服务器），无法写入</source>
        <translation>The database server is read-only, for example a standby</translation>
    </message>
    <message>
        <source>%1不能大于%2</source>
        <translation>%1 may be at most %2</translation>
    </message>
    <message>
        <source>搬移中断（%1），服务器上没有变化，可以再运行一次</source>
        <translation>The move was interrupted (%1). Nothing has changed on the server, and it can be run again</translation>
    </message>
    <message>
        <source>协议“%1”没有内容，不能签署</source>
        <translation>The agreement &quot;%1&quot; has no text and cannot be signed</translation>
    </message>
    <message>
        <source>成交的数量超过下达数量，没有保存</source>
        <translation>The filled quantity is above the issued one, so nothing was stored</translation>
    </message>
    <message>
        <source>证券%1不能用于指令类型“%2”</source>
        <translation>Security %1 cannot be used with instruction type “%2”</translation>
    </message>
    <message>
        <source>证券%1在指令类型“%2”中不能按金额交易</source>
        <translation>Security %1 cannot be traded by amount with instruction type “%2”</translation>
    </message>
    <message>
        <source>漏下达</source>
        <translation>Missed</translation>
    </message>
</context>
<context>
    <name>ExportActions</name>
    <message>
        <source>导出</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>%1…</source>
        <translation>%1…</translation>
    </message>
    <message>
        <source>导出%1</source>
        <translation>Export %1</translation>
    </message>
    <message>
        <source>表格 (*.csv *.xlsx *.json)</source>
        <translation>Tables (*.csv *.xlsx *.json)</translation>
    </message>
    <message>
        <source>正在导出%1到%2……</source>
        <translation>Exporting %1 to %2…</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>已导出到%1</source>
        <translation>Exported to %1</translation>
    </message>
    <message>
        <source>导出已取消，没有写入%1</source>
        <translation>The export was cancelled; %1 was not written</translation>
    </message>
</context>
<context>
    <name>FormDraft</name>
    <message>
        <source>算法参数 %1</source>
        <translation>Algorithm %1</translation>
    </message>
    <message>
        <source>新建计划</source>
        <translation>New plan</translation>
    </message>
    <message>
        <source>修改计划 %1</source>
        <translation>Edit plan %1</translation>
    </message>
</context>
<context>
    <name>HistoryTexts</name>
    <message>
        <source>（空）</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>内容未变</source>
        <translation>unchanged</translation>
    </message>
    <message>
        <source>元</source>
        <translation>yuan</translation>
    </message>
    <message>
        <source>下达%1%2</source>
        <translation>issued %1%2</translation>
    </message>
    <message>
        <source>成交%1%2</source>
        <translation>filled %1%2</translation>
    </message>
    <message>
        <source>已结束</source>
        <translation>ended</translation>
    </message>
    <message>
        <source>新建</source>
        <translation>New</translation>
    </message>
    <message>
        <source>修改为第%1版：%2</source>
        <translation>Changed to version %1: %2</translation>
    </message>
    <message>
        <source>状态变更为第%1版：%2</source>
        <translation>State changed in version %1: %2</translation>
    </message>
    <message>
        <source>下达指令：</source>
        <translation>Instruction issued: </translation>
    </message>
    <message>
        <source>指令变更：</source>
        <translation>Instruction changed: </translation>
    </message>
    <message>
        <source>签署协议：</source>
        <translation>Agreement signed: </translation>
    </message>
    <message>
        <source>连接中断前提交的计划%1已保存。</source>
        <translation>Plan %1, sent before the connection was lost, has been stored.</translation>
    </message>
    <message>
        <source>连接中断前提交的计划未保存，请重新提交。</source>
        <translation>The plan sent before the connection was lost has not been stored. Please send it again.</translation>
    </message>
    <message>
        <source>连接中断前下达的当日指令已保存。</source>
        <translation>The instructions issued before the connection was lost have been stored.</translation>
    </message>
    <message>
        <source>连接中断前下达的当日指令未保存，请重新下达。</source>
        <translation>The instructions issued before the connection was lost have not been stored. Please issue them again.</translation>
    </message>
    <message>
        <source>连接中断前签署的协议已保存。</source>
        <translation>The agreement signed before the connection was lost has been stored.</translation>
    </message>
    <message>
        <source>连接中断前签署的协议未保存，请重新签署。</source>
        <translation>The agreement signed before the connection was lost has not been stored. Please sign it again.</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 %2（%3，%4）</source>
        <translation>%1 %2 (%3, %4)</translation>
    </message>
    <message>
        <source>连接中断前变更的计划状态已保存。</source>
        <translation>The plan states changed before the connection was lost have been stored.</translation>
    </message>
    <message>
        <source>连接中断前变更的计划状态未保存，请重新变更。</source>
        <translation>The plan states changed before the connection was lost have not been stored. Please change them again.</translation>
    </message>
    <message>
        <source>全部完成：%1</source>
        <translation>completed: %1</translation>
    </message>
</context>
<context>
    <name>ImportActions</name>
    <message>
        <source>导入…</source>
        <translation>Import…</translation>
    </message>
    <message>
        <source>按此计划批量新建…</source>
        <translation>New plans like this one…</translation>
    </message>
</context>
<context>
    <name>ImportSheet</name>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message>
        <source>第一行是列名，必须有：%1</source>
        <translation>The first row names the columns. Needed: %1</translation>
    </message>
    <message>
        <source>%1；可以有：%2</source>
        <translation>%1; possible: %2</translation>
    </message>
    <message>
        <source>模板计划</source>
        <translation>Template plan</translation>
    </message>
    <message>
        <source>删除文件中没有的内容</source>
        <translation>Remove what the file does not have</translation>
    </message>
    <message>
        <source>略去有错误的行</source>
        <translation>Leave out rows with errors</translation>
    </message>
    <message>
        <source>导入</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>各行的结果</source>
        <translation>Result of each row</translation>
    </message>
    <message>
        <source>类别</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>计划编号，或空</source>
        <translation>Plan number, or empty</translation>
    </message>
    <message>
        <source>选择文件…</source>
        <translation>Choose files…</translation>
    </message>
    <message>
        <source>从剪贴板粘贴</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>预览</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>选择要导入的文件</source>
        <translation>Choose files to import</translation>
    </message>
    <message>
        <source>表格 (*.csv *.txt *.xlsx *.json);;所有文件 (*)</source>
        <translation>Tables (*.csv *.txt *.xlsx *.json);;All files (*)</translation>
    </message>
    <message>
        <source>剪贴板中没有文字。</source>
        <translation>The clipboard has no text.</translation>
    </message>
    <message>
        <source>剪贴板</source>
        <translation>Clipboard</translation>
    </message>
    <message>
        <source>选择文件，或从表格软件复制后粘贴。</source>
        <translation>Choose files, or copy rows in a spreadsheet and paste them.</translation>
    </message>
    <message>
        <source>先预览，再导入。</source>
        <translation>Preview first, then import.</translation>
    </message>
    <message>
        <source>……</source>
        <translation>…</translation>
    </message>
    <message>
        <source>将删除%1项：
%2
是否继续？</source>
        <translation>%1 items will be removed:
%2
Continue?</translation>
    </message>
    <message>
        <source>正在检查……</source>
        <translation>Checking…</translation>
    </message>
    <message>
        <source>正在导入……</source>
        <translation>Importing…</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>剪贴板中的文字含有无法保存的字符。</source>
        <translation>The text on the clipboard has characters that cannot be stored.</translation>
    </message>
</context>
<context>
    <name>ImportSheetModel</name>
    <message>
        <source>错误</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>删除</source>
        <translation>Removed</translation>
    </message>
    <message>
        <source>新增</source>
        <translation>Added</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>Changed</translation>
    </message>
    <message>
        <source>保留</source>
        <translation>Kept</translation>
    </message>
    <message>
        <source>不变</source>
        <translation>Unchanged</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>File</translation>
    </message>
    <message>
        <source>行</source>
        <translation>Row</translation>
    </message>
    <message>
        <source>列</source>
        <translation>Column</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>ImportTexts</name>
    <message>
        <source>账户%1：取消%2</source>
        <translation>Account %1: without %2</translation>
    </message>
    <message>
        <source>用户%1的账户%2</source>
        <translation>Account %2 of user %1</translation>
    </message>
    <message>
        <source>%1（可卖%2）</source>
        <translation>%1 (%2 can be sold)</translation>
    </message>
    <message>
        <source>持仓%1：新增%2</source>
        <translation>Position %1: added %2</translation>
    </message>
    <message>
        <source>持仓%1：由%2改为%3</source>
        <translation>Position %1: %3 instead of %2</translation>
    </message>
    <message>
        <source>证券%1的全部收盘价</source>
        <translation>All closing prices of %1</translation>
    </message>
    <message>
        <source>证券%1的文件中没有的收盘价</source>
        <translation>Closing prices of %1 that the file does not have</translation>
    </message>
    <message>
        <source>第%1行</source>
        <translation> row %1</translation>
    </message>
    <message>
        <source>第%1列（%2）</source>
        <translation> column %1 (%2)</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1：新增%2，修改%3，不变%4</source>
        <translation>%1: %2 added, %3 changed, %4 unchanged</translation>
    </message>
    <message>
        <source>，导入后已另行修改而保留%1</source>
        <translation>, %1 kept because they were changed after the import</translation>
    </message>
    <message>
        <source>，删除%1</source>
        <translation>, %1 removed</translation>
    </message>
    <message>
        <source>，略去错误%1</source>
        <translation>, %1 errors left out</translation>
    </message>
    <message>
        <source>，错误%1，没有导入</source>
        <translation>, %1 errors, not imported</translation>
    </message>
    <message>
        <source>（试运行，没有保存）</source>
        <translation> (preview, nothing stored)</translation>
    </message>
    <message>
        <source>，没有导入</source>
        <translation>, not imported</translation>
    </message>
    <message>
        <source>另有%1处错误</source>
        <translation>%1 more errors</translation>
    </message>
    <message>
        <source>删除：%1</source>
        <translation>Removed: %1</translation>
    </message>
    <message>
        <source>新增计划%1：%2</source>
        <translation>New plan %1: %2</translation>
    </message>
    <message>
        <source>计划%1在导入后已另行修改</source>
        <translation>Plan %1 was changed after the import</translation>
    </message>
    <message>
        <source>修改计划%1：%2</source>
        <translation>Changed plan %1: %2</translation>
    </message>
    <message>
        <source>证券%1：%2由“%3”改为“%4”</source>
        <translation>Security %1: %2 &quot;%4&quot; instead of &quot;%3&quot;</translation>
    </message>
    <message>
        <source>证券%1：新增%2</source>
        <translation>Security %1: added %2</translation>
    </message>
    <message>
        <source>新增计划：%1</source>
        <translation>New plan: %1</translation>
    </message>
</context>
<context>
    <name>IssueSheet</name>
    <message>
        <source>买入</source>
        <translation>Buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>账户%1 %2 %3笔 %4元</source>
        <translation>Account %1: %2, %3 orders, %4 yuan</translation>
    </message>
    <message>
        <source>另有%1项</source>
        <translation>and %1 more</translation>
    </message>
    <message>
        <source>没有选择计划</source>
        <translation>No plan is chosen</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>全选</source>
        <translation>All</translation>
    </message>
    <message>
        <source>下达当日指令 - %1</source>
        <translation>Issue Today&apos;s Instructions - %1</translation>
    </message>
    <message>
        <source>正在读取当日的计划……</source>
        <translation>Reading the plans of the day…</translation>
    </message>
    <message>
        <source>今天没有要下达的计划。</source>
        <translation>There is no plan to issue today.</translation>
    </message>
    <message>
        <source>选择要下达的计划。</source>
        <translation>Choose the plans to issue.</translation>
    </message>
    <message>
        <source>下达%1条指令？
%2</source>
        <translation>Issue %1 instructions?
%2</translation>
    </message>
    <message>
        <source>正在下达……</source>
        <translation>Issuing…</translation>
    </message>
    <message>
        <source>已下达%1条，此前已下达%2个，未下达%3个。</source>
        <translation>Issued: %1. Issued before: %2. Not issued: %3.</translation>
    </message>
    <message>
        <source>其余已取消，可以再次下达。</source>
        <translation> The rest was cancelled and can be issued again.</translation>
    </message>
    <message>
        <source>其余因故未下达：%1</source>
        <translation> The rest was not issued: %1</translation>
    </message>
    <message>
        <source>下达%1条……</source>
        <translation>Issue %1…</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>%1，可用资金%2元</source>
        <translation>%1, cash %2 CNY</translation>
    </message>
    <message>
        <source>%1，资金未知</source>
        <translation>%1, cash not known</translation>
    </message>
    <message>
        <source>%1已经过去，没有下达。请核对今天的计划。</source>
        <translation>%1 is over; nothing was issued. Check the plans of today.</translation>
    </message>
</context>
<context>
    <name>IssueSheetModel</name>
    <message>
        <source>已下达 %1</source>
        <translation>Issued %1</translation>
    </message>
    <message>
        <source>此前已下达</source>
        <translation>Issued before</translation>
    </message>
    <message>
        <source>未下达：%1</source>
        <translation>Not issued: %1</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>数量</source>
        <translation>Quantity</translation>
    </message>
    <message>
        <source>金额（元）</source>
        <translation>Amount (yuan)</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>不限价</source>
        <translation>No limit</translation>
    </message>
    <message>
        <source>不能下达：%1</source>
        <translation>Cannot be issued: %1</translation>
    </message>
    <message>
        <source>价格按涨跌停价</source>
        <translation>At the limit price of the day</translation>
    </message>
    <message>
        <source>数量按可用资金减少</source>
        <translation>quantity cut to the cash</translation>
    </message>
    <message>
        <source>%1漏下达，不补下达</source>
        <translation>%1 was missed and is not issued later</translation>
    </message>
    <message>
        <source>；</source>
        <translation>; </translation>
    </message>
    <message>
        <source>数量按可卖数量减少</source>
        <translation>quantity reduced to what may be sold</translation>
    </message>
    <message>
        <source>未下达：当日不再有效，已被修改、暂停、停止或完成</source>
        <translation>Not issued: no longer due on this day: changed, paused, stopped or completed</translation>
    </message>
    <message>
        <source>未下达：已变化，请重新确认</source>
        <translation>Not issued: it has changed; confirm again</translation>
    </message>
</context>
<context>
    <name>IssueTexts</name>
    <message>
        <source>%1：新下达指令%2条，此前已下达的计划%3个，未下达的计划%4个。</source>
        <translation>%1: %2 new instructions, %3 plans issued before, %4 plans not issued.</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>其余计划未下达：%1</source>
        <translation>The other plans were not issued: %1</translation>
    </message>
    <message>
        <source>（%1漏下达，不补下达）</source>
        <translation> (%1 was missed and is not issued later)</translation>
    </message>
    <message>
        <source>%1 不能下达：%2</source>
        <translation>%1 cannot be issued: %2</translation>
    </message>
    <message>
        <source>不限价</source>
        <translation>no limit</translation>
    </message>
    <message>
        <source>%1 %2 数量%3 金额%4元</source>
        <translation>%1 %2 quantity %3 amount %4 yuan</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>上一页</source>
        <translation>Previous Page</translation>
    </message>
    <message>
        <source>下一页</source>
        <translation>Next Page</translation>
    </message>
    <message>
        <source>日志</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>当日的指令、未下达的计划和状态变更</source>
        <translation>Instructions, refusals and changes of states of the day</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>全部账户</source>
        <translation>All accounts</translation>
    </message>
    <message>
        <source>前一日</source>
        <translation>Day Before</translation>
    </message>
    <message>
        <source>后一日</source>
        <translation>Day After</translation>
    </message>
    <message>
        <source>今天</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>正在读取……</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>%1没有记录。</source>
        <translation>No entries on %1.</translation>
    </message>
    <message>
        <source>共%1条，第%2至%3条</source>
        <translation>%1 entries, %2 to %3 shown</translation>
    </message>
</context>
<context>
    <name>JournalTexts</name>
    <message>
        <source>时间</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>Plan No.</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>事项</source>
        <translation>Event</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>用户</source>
        <translation>User</translation>
    </message>
    <message>
        <source>下达</source>
        <translation>Issued</translation>
    </message>
    <message>
        <source>未下达</source>
        <translation>Not issued</translation>
    </message>
    <message>
        <source>状态变更</source>
        <translation>State changed</translation>
    </message>
    <message>
        <source>已结束</source>
        <translation>ended</translation>
    </message>
    <message>
        <source>进行中</source>
        <translation>running</translation>
    </message>
    <message>
        <source>下达 %1，成交 %2，%3</source>
        <translation>Issued %1, filled %2, %3</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>交易计划 - %1（%2）</source>
        <translation>Trading plans - %1 (%2)</translation>
    </message>
    <message>
        <source>新建</source>
        <translation>New</translation>
    </message>
    <message>
        <source>编辑</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>换肤</source>
        <translation>Skin</translation>
    </message>
    <message>
        <source>下达当日指令</source>
        <translation>Issue today&apos;s instructions</translation>
    </message>
    <message>
        <source>刷新</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>计划(&amp;P)</source>
        <translation>&amp;Plans</translation>
    </message>
    <message>
        <source>视图(&amp;V)</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>工具栏</source>
        <translation>Toolbar</translation>
    </message>
    <message>
        <source>刷新失败：%1。列表仍是%2读取的内容，可能已经过时。</source>
        <translation>The refresh has failed: %1. The list was read at %2 and may be out of date.</translation>
    </message>
    <message>
        <source>与服务器的连接已断开，正在重新连接……</source>
        <translation>The connection to the server is lost; connecting again…</translation>
    </message>
    <message>
        <source>%1最近一次失败：%2。</source>
        <translation>%1 The last attempt failed: %2.</translation>
    </message>
    <message>
        <source>策略文件…</source>
        <translation>Strategy files…</translation>
    </message>
    <message>
        <source>一次最多选择%1个计划，请先筛选或搜索</source>
        <translation>At most %1 plans can be selected at once; filter or search first</translation>
    </message>
</context>
<context>
    <name>MessageBox</name>
    <message>
        <source>确认</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>OrloAccountComboBox</name>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>OrloAgreementSignWidget</name>
    <message>
        <source>签署客户</source>
        <translation>Signing clients</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>签署协议</source>
        <translation>Sign agreement</translation>
    </message>
    <message>
        <source>签署（%1）</source>
        <translation>Sign (%1)</translation>
    </message>
    <message>
        <source>签署</source>
        <translation>Sign</translation>
    </message>
    <message>
        <source>请选择签署客户！</source>
        <translation>Please choose who signs!</translation>
    </message>
    <message>
        <source>无法读取协议的内容，不能签署。</source>
        <translation>The text of the agreement cannot be read, so it cannot be signed.</translation>
    </message>
</context>
<context>
    <name>OrloDateEdit</name>
    <message>
        <source>开始日期</source>
        <translation>First date</translation>
    </message>
    <message>
        <source>至</source>
        <translation>to</translation>
    </message>
    <message>
        <source>结束日期</source>
        <translation>Last date</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>结束日期已随开始日期改为%1</source>
        <translation>The last date has followed the first to %1</translation>
    </message>
</context>
<context>
    <name>OrloDoubleSpinBox</name>
    <message>
        <source>已按%1位小数取整</source>
        <translation>Rounded to %1 decimals</translation>
    </message>
    <message>
        <source>，%1</source>
        <translation>, %1</translation>
    </message>
</context>
<context>
    <name>OrloWidget</name>
    <message>
        <source>警告</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>错误</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>确认</source>
        <translation>Confirm</translation>
    </message>
</context>
<context>
    <name>PanelBox</name>
    <message>
        <source>更多</source>
        <translation>More</translation>
    </message>
    <message>
        <source>已展开</source>
        <translation>expanded</translation>
    </message>
    <message>
        <source>已折叠</source>
        <translation>collapsed</translation>
    </message>
</context>
<context>
    <name>ParameterForm</name>
    <message>
        <source>选填</source>
        <translation>optional</translation>
    </message>
    <message>
        <source>%1，选填</source>
        <translation>%1, optional</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
</context>
<context>
    <name>ParameterValue</name>
    <message>
        <source>不小于 %1</source>
        <translation>at least %1</translation>
    </message>
    <message>
        <source>不大于 %1</source>
        <translation>at most %1</translation>
    </message>
    <message>
        <source>%1 ～ %2</source>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>PlanColumns</name>
    <message>
        <source>%1天</source>
        <translation>%1 d</translation>
    </message>
    <message>
        <source>已下达</source>
        <translation>Issued</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>目标</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>成交 / 下达</source>
        <translation>Filled / issued</translation>
    </message>
    <message>
        <source>每日</source>
        <translation>Per day</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>生效时段</source>
        <translation>Valid period</translation>
    </message>
    <message>
        <source>剩余</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>最近结果</source>
        <translation>Last result</translation>
    </message>
    <message>
        <source>分配给</source>
        <translation>Assignee</translation>
    </message>
    <message>
        <source>计划类型</source>
        <translation>Plan type</translation>
    </message>
    <message>
        <source>指令类型</source>
        <translation>Instruction</translation>
    </message>
    <message>
        <source>创建人/时间</source>
        <translation>Created</translation>
    </message>
    <message>
        <source>漏下达</source>
        <translation>Missed</translation>
    </message>
    <message>
        <source>四字账户（F000000）</source>
        <translation>四字账户 (F000000)</translation>
    </message>
    <message>
        <source>已暂停</source>
        <translation>Not started</translation>
    </message>
    <message>
        <source>10,000,000.00 元</source>
        <translation>10,000,000.00 yuan</translation>
    </message>
    <message>
        <source>0000-00-00 至 0000-00-00</source>
        <translation>0000-00-00 to 0000-00-00</translation>
    </message>
    <message>
        <source>剩余剩余</source>
        <translation>100 days</translation>
    </message>
    <message>
        <source>00-00 四字结果</source>
        <translation>00-00 No closing price</translation>
    </message>
    <message>
        <source>累计数量</source>
        <translation>Cumulative quantity</translation>
    </message>
    <message>
        <source>100,000.00 元</source>
        <translation>100,000.00 yuan</translation>
    </message>
</context>
<context>
    <name>PlanDetails</name>
    <message>
        <source>选择一个计划，查看全部内容。</source>
        <translation>Choose a plan to see all of it.</translation>
    </message>
    <message>
        <source>已下达指令</source>
        <translation>Issued instructions</translation>
    </message>
    <message>
        <source>计划内容</source>
        <translation>Contents of the plan</translation>
    </message>
    <message>
        <source>历史</source>
        <translation>History</translation>
    </message>
    <message>
        <source>最近的%1条，全部历史见命令plandesk history</source>
        <translation>The latest %1; the command plandesk history prints all</translation>
    </message>
    <message>
        <source>%1……（共%2字）</source>
        <translation>%1... (%2 characters)</translation>
    </message>
    <message>
        <source>未下达：%1</source>
        <translation>Not issued: %1</translation>
    </message>
    <message>
        <source>漏下达</source>
        <translation>Missed</translation>
    </message>
    <message>
        <source>最近的%1天</source>
        <translation>The last %1 days</translation>
    </message>
</context>
<context>
    <name>PlanFormatter</name>
    <message>
        <source>是</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>否</source>
        <translation>No</translation>
    </message>
    <message>
        <source>元</source>
        <translation>yuan</translation>
    </message>
    <message>
        <source>%1 起</source>
        <translation>from %1</translation>
    </message>
    <message>
        <source>%1 至 %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>账户名称</source>
        <translation>Account name</translation>
    </message>
    <message>
        <source>证券账户</source>
        <translation>Securities account</translation>
    </message>
    <message>
        <source>指令类型</source>
        <translation>Instruction</translation>
    </message>
    <message>
        <source>指令单类型</source>
        <translation>Target type</translation>
    </message>
    <message>
        <source>计划类型</source>
        <translation>Plan type</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>市场</source>
        <translation>Market</translation>
    </message>
    <message>
        <source>交易方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>报价类型</source>
        <translation>Price type</translation>
    </message>
    <message>
        <source>委托类别</source>
        <translation>Order category</translation>
    </message>
    <message>
        <source>价格模式</source>
        <translation>Price mode</translation>
    </message>
    <message>
        <source>价格1</source>
        <translation>Price 1</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>价格2</source>
        <translation>Price 2</translation>
    </message>
    <message>
        <source>目标总量</source>
        <translation>Target total</translation>
    </message>
    <message>
        <source>每日计划量</source>
        <translation>Daily quantity</translation>
    </message>
    <message>
        <source>每日最大委托量</source>
        <translation>Daily max.</translation>
    </message>
    <message>
        <source>减持占比</source>
        <translation>Sell ratio</translation>
    </message>
    <message>
        <source>下单模式</source>
        <translation>Order mode</translation>
    </message>
    <message>
        <source>执行人</source>
        <translation>Executor</translation>
    </message>
    <message>
        <source>分配给</source>
        <translation>Assignee</translation>
    </message>
    <message>
        <source>生效时段</source>
        <translation>Valid period</translation>
    </message>
    <message>
        <source>减持模式</source>
        <translation>Reduction rule</translation>
    </message>
    <message>
        <source>连续90天减持不超过总股本1%</source>
        <translation>At most 1% of shares in 90 consecutive days</translation>
    </message>
    <message>
        <source>备注</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>算法</source>
        <translation>Algorithm</translation>
    </message>
    <message>
        <source>算法参数</source>
        <translation>Algorithm parameters</translation>
    </message>
    <message>
        <source>创建</source>
        <translation>Created</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>Changed</translation>
    </message>
    <message>
        <source>第%1版 %2</source>
        <translation>Version %1, %2</translation>
    </message>
    <message>
        <source>张</source>
        <translation>bonds</translation>
    </message>
    <message>
        <source>股</source>
        <translation>shares</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1：%2；%3</source>
        <translation>%1: %2; %3</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>不限</source>
        <translation>No maximum</translation>
    </message>
</context>
<context>
    <name>PlanLife</name>
    <message>
        <source>未开始</source>
        <translation>Not started</translation>
    </message>
    <message>
        <source>进行中</source>
        <translation>Running</translation>
    </message>
    <message>
        <source>异常</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>已暂停</source>
        <translation>Paused</translation>
    </message>
    <message>
        <source>已停止</source>
        <translation>Stopped</translation>
    </message>
    <message>
        <source>已完成</source>
        <translation>Completed</translation>
    </message>
    <message>
        <source>已过期</source>
        <translation>Expired</translation>
    </message>
    <message>
        <source>已归档</source>
        <translation>Archived</translation>
    </message>
    <message>
        <source>有效</source>
        <translation>active</translation>
    </message>
</context>
<context>
    <name>PlanPane</name>
    <message>
        <source>全部</source>
        <translation>All</translation>
    </message>
    <message>
        <source>今日</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>进行中</source>
        <translation>Running</translation>
    </message>
    <message>
        <source>异常</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>我的</source>
        <translation>Mine</translation>
    </message>
    <message>
        <source>搜索计划</source>
        <translation>Search plans</translation>
    </message>
    <message>
        <source>编号、证券代码、名称、账户（Ctrl+F）</source>
        <translation>Number, symbol, name, account (Ctrl+F)</translation>
    </message>
    <message>
        <source>搜索</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>已归档</source>
        <translation>Archived</translation>
    </message>
</context>
<context>
    <name>PlanTable</name>
    <message>
        <source>计划列表</source>
        <translation>List of plans</translation>
    </message>
</context>
<context>
    <name>PlanTableModel</name>
    <message>
        <source>单击排序</source>
        <translation>Click to sort</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>最多输入%1个字符</source>
        <translation>At most %1 characters</translation>
    </message>
</context>
<context>
    <name>ReasonDialog</name>
    <message>
        <source>停止计划</source>
        <translation>Stop Plans</translation>
    </message>
    <message>
        <source>原因</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>停止</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>SecurityChooser</name>
    <message>
        <source>代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>持仓</source>
        <translation>Held</translation>
    </message>
    <message>
        <source>选择证券</source>
        <translation>Choose a security</translation>
    </message>
    <message>
        <source>代码、名称或拼音首字母</source>
        <translation>Code, name or pinyin initials</translation>
    </message>
    <message>
        <source>匹配的证券</source>
        <translation>Matching securities</translation>
    </message>
    <message>
        <source>持仓读取失败：%1</source>
        <translation>Holdings not read: %1</translation>
    </message>
    <message>
        <source>请先选择账户和指令类型</source>
        <translation>Choose an account and an instruction type first</translation>
    </message>
    <message>
        <source>证券列表正在准备，请稍候</source>
        <translation>The list of securities is being prepared, please wait</translation>
    </message>
    <message>
        <source>没有匹配的证券</source>
        <translation>No security matches</translation>
    </message>
</context>
<context>
    <name>SessionStart</name>
    <message>
        <source>首次启动，正在生成示例行情……</source>
        <translation>First start: generating the sample market...</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>交易计划</source>
        <translation>Plans</translation>
    </message>
    <message>
        <source>生成示例行情 %1%</source>
        <translation>Generating the sample market %1%</translation>
    </message>
</context>
<context>
    <name>StateActions</name>
    <message>
        <source>……共%1个计划</source>
        <translation>… %1 plans in total</translation>
    </message>
    <message>
        <source>暂停</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>恢复</source>
        <translation>Resume</translation>
    </message>
    <message>
        <source>停止……</source>
        <translation>Stop…</translation>
    </message>
    <message>
        <source>归档</source>
        <translation>Archive</translation>
    </message>
    <message>
        <source>全部暂停……</source>
        <translation>Pause All…</translation>
    </message>
    <message>
        <source>停止%1个计划后不能恢复，也不能再修改。</source>
        <translation>%1 plans will be stopped. They cannot be resumed or changed afterwards.</translation>
    </message>
    <message>
        <source>暂停账户%1的全部计划？</source>
        <translation>Pause all plans of account %1?</translation>
    </message>
    <message>
        <source>正在变更计划的状态……</source>
        <translation>Changing the plans&apos; states…</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>已变更%1个计划……</source>
        <translation>%1 plans changed…</translation>
    </message>
    <message>
        <source>%1个计划%2</source>
        <translation>%1 plans: %2</translation>
    </message>
    <message>
        <source>，其余已取消</source>
        <translation>, the rest was cancelled</translation>
    </message>
    <message>
        <source>已恢复</source>
        <translation>resumed</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>共%1个以上计划</source>
        <translation>%1 plans or more</translation>
    </message>
    <message>
        <source>共%1个计划</source>
        <translation>%1 plans</translation>
    </message>
    <message>
        <source>%1，上方有%2个新计划</source>
        <translation>%1, %2 new ones above</translation>
    </message>
    <message>
        <source>%1（名称含有这些字的证券过多，只搜索了前%2只，请输入更多的字）</source>
        <translation>%1 (too many securities have such a name, the first %2 were searched for; type more)</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>连接已恢复，%1</source>
        <translation>The connection is restored, %1</translation>
    </message>
</context>
<context>
    <name>StrategyReport</name>
    <message>
        <source>拒绝</source>
        <translation>refused</translation>
    </message>
    <message>
        <source>可用</source>
        <translation>offered</translation>
    </message>
    <message>
        <source>不可用</source>
        <translation>not offered</translation>
    </message>
    <message>
        <source>%1：拒绝 %2</source>
        <translation>%1: refused, %2</translation>
    </message>
    <message>
        <source>%1：%2个策略</source>
        <translation>%1: %2 strategies</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Note:</translation>
    </message>
    <message>
        <source>策略%1（第%2行）：%3</source>
        <translation>Strategy %1 (line %2): %3</translation>
    </message>
    <message>
        <source>原因</source>
        <translation>Reason:</translation>
    </message>
</context>
<context>
    <name>StrategySheet</name>
    <message>
        <source>原因</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>策略文件</source>
        <translation>Strategy files</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Remarks</translation>
    </message>
    <message>
        <source>选择文件夹…</source>
        <translation>Choose folder…</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>只用内置算法</source>
        <translation>Built-in algorithms only</translation>
    </message>
    <message>
        <source>没有选择策略文件夹，只有内置的算法。</source>
        <translation>No folder of strategy files is chosen; only the built-in algorithms are offered.</translation>
    </message>
    <message>
        <source>文件夹：%1</source>
        <translation>Folder: %1</translation>
    </message>
    <message>
        <source>已读取</source>
        <translation>Read</translation>
    </message>
    <message>
        <source>拒绝</source>
        <translation>Refused</translation>
    </message>
    <message>
        <source>选择策略文件夹</source>
        <translation>Choose the folder of strategy files</translation>
    </message>
</context>
<context>
    <name>TransferForm</name>
    <message>
        <source>休市日</source>
        <translation>Closures</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Securities</translation>
    </message>
    <message>
        <source>收盘价</source>
        <translation>Closing prices</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Accounts</translation>
    </message>
    <message>
        <source>用户和权限</source>
        <translation>Users and rights</translation>
    </message>
    <message>
        <source>持仓</source>
        <translation>Positions</translation>
    </message>
    <message>
        <source>计划</source>
        <translation>Plans</translation>
    </message>
    <message>
        <source>指令</source>
        <translation>Instructions</translation>
    </message>
    <message>
        <source>历史</source>
        <translation>History</translation>
    </message>
    <message>
        <source>日志</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>审批链</source>
        <translation>Approval chains</translation>
    </message>
</context>
<context>
    <name>VorSearchBox</name>
    <message>
        <source>没有匹配的证券</source>
        <translation>No security matches</translation>
    </message>
    <message>
        <source>有多只证券匹配，请从列表中选择</source>
        <translation>Several securities match; please choose one from the list</translation>
    </message>
    <message>
        <source>请至少输入%1个字符</source>
        <translation>Please type at least %1 characters</translation>
    </message>
    <message>
        <source>输入证券代码或名称查找</source>
        <translation>Type a code or a name to search</translation>
    </message>
    <message>
        <source>证券列表正在准备，请稍候</source>
        <translation>The list of securities is being prepared, please wait</translation>
    </message>
</context>
</TS>
