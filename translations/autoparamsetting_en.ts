<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>AutoParamSetting</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>证券代码</source>
        <translation>Security code</translation>
    </message>
    <message>
        <source>市场</source>
        <translation>Market</translation>
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
        <source>报价类型</source>
        <translation>Price type</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>交易方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>指令单类型</source>
        <translation>Target type</translation>
    </message>
    <message>
        <source>账户名称</source>
        <translation>Account name</translation>
    </message>
    <message>
        <source>委托类别</source>
        <translation>Order category</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>减持模式</source>
        <translation>Reduction rule</translation>
    </message>
    <message>
        <source>价格2</source>
        <translation>Price 2</translation>
    </message>
    <message>
        <source>每日最大委托量</source>
        <translation>Daily max.</translation>
    </message>
    <message>
        <source>分配给</source>
        <translation>Assignee</translation>
    </message>
    <message>
        <source>减持占比</source>
        <translation>Sell ratio</translation>
    </message>
    <message>
        <source>股</source>
        <translation>shares</translation>
    </message>
    <message>
        <source>目标总量</source>
        <translation>Target total</translation>
    </message>
    <message>
        <source>确认</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>备注</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>生效时段</source>
        <translation>Valid period</translation>
    </message>
    <message>
        <source>元</source>
        <translation>yuan</translation>
    </message>
    <message>
        <source>算法参数设置</source>
        <translation>Algorithm…</translation>
    </message>
    <message>
        <source>价格模式</source>
        <translation>Price mode</translation>
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
        <source>未选择资金帐号！</source>
        <translation>No fund account is chosen!</translation>
    </message>
    <message>
        <source>基本参数</source>
        <translation>Basic parameters</translation>
    </message>
    <message>
        <source>交易计划参数</source>
        <translation>Trading plan parameters</translation>
    </message>
    <message>
        <source>连续90天减持不超过总股本1%</source>
        <translation>At most 1% of shares in 90 consecutive days</translation>
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
        <source>增强限价盘</source>
        <translation>Enhanced limit order</translation>
    </message>
    <message>
        <source>竞价限价盘</source>
        <translation>At-auction limit order</translation>
    </message>
    <message>
        <source>价格1</source>
        <translation>Price 1</translation>
    </message>
    <message>
        <source>张</source>
        <translation>bonds</translation>
    </message>
    <message>
        <source>交易自动规划创建成功!</source>
        <translation>The automatic trading plan was created!</translation>
    </message>
    <message>
        <source>交易计划%1修改失败，失败原因：%2</source>
        <translation>Trading plan %1 could not be modified. Reason: %2</translation>
    </message>
    <message>
        <source>交易计划%1修改成功!</source>
        <translation>Trading plan %1 was modified!</translation>
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
        <source>买入</source>
        <translation>Buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>Sell</translation>
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
        <source>每日计划量</source>
        <translation>Daily quantity</translation>
    </message>
    <message>
        <source>%1必填，请重新编辑！</source>
        <translation>%1 is required. Please edit the plan again!</translation>
    </message>
    <message>
        <source>当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。</source>
        <translation>The risk disclosure is not signed for this account. Please close the planning menu, create the holdings-reduction plan again and sign it.</translation>
    </message>
    <message>
        <source>未绑定资金帐号！</source>
        <translation>No fund account is bound!</translation>
    </message>
    <message>
        <source>未输入代码！</source>
        <translation>No security code is entered!</translation>
    </message>
    <message>
        <source>未输入目标总量！</source>
        <translation>No target total is entered!</translation>
    </message>
    <message>
        <source>沪市债券目标总量需为%1的正整数倍，是否继续？</source>
        <translation>The target total of a Shanghai bond must be a positive multiple of %1. Continue?</translation>
    </message>
    <message>
        <source>未输入每日计划量!</source>
        <translation>No daily quantity is entered!</translation>
    </message>
    <message>
        <source>沪市债券%1需为%2的正整数倍，是否继续？</source>
        <translation>Shanghai bond: %1 must be a positive multiple of %2. Continue?</translation>
    </message>
    <message>
        <source>未输入减持占比！</source>
        <translation>No sell ratio is entered!</translation>
    </message>
    <message>
        <source>%1公式必填，请重新编辑！</source>
        <translation>The formula of %1 is required. Please edit the plan again!</translation>
    </message>
    <message>
        <source>%1公式包含特殊字符%2，请重新编辑！</source>
        <translation>The formula of %1 contains the special character %2. Please edit the plan again!</translation>
    </message>
    <message>
        <source>未设置算法参数！</source>
        <translation>No algorithm parameters are set!</translation>
    </message>
    <message>
        <source>算法参数中的交易账号与计划参数不一致！</source>
        <translation>The trading account of the algorithm parameters is not that of the plan!</translation>
    </message>
    <message>
        <source>算法参数中的交易方向与计划参数不一致！</source>
        <translation>The side of the algorithm parameters is not that of the plan!</translation>
    </message>
    <message>
        <source>%1算法不支持不限价，请重新设置！</source>
        <translation>The algorithm %1 does not support trading without a price limit. Please set it again!</translation>
    </message>
    <message>
        <source>目标数量不得小于该计划已成交和在下达总和，请重新输入！</source>
        <translation>The target must not be less than what this plan has filled and issued in total. Please enter it again!</translation>
    </message>
    <message>
        <source>计划已开始执行，结束日期不得早于当日！</source>
        <translation>The plan has started: its end must not be earlier than today!</translation>
    </message>
    <message>
        <source>计划已开始执行，初始日期不支持修改！</source>
        <translation>The plan has started: its first date cannot be changed!</translation>
    </message>
    <message>
        <source>%1需等于【%2】的整数倍，是否继续？</source>
        <translation>%1 should be a multiple of the lot [%2]. Continue?</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>modifying</translation>
    </message>
    <message>
        <source>创建</source>
        <translation>creating</translation>
    </message>
    <message>
        <source>当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，否则点击【取消】</source>
        <translation>The available holdings of account [%1] are less than the target total. Continue %2 the plan? Click [OK] to continue, otherwise [Cancel]</translation>
    </message>
    <message>
        <source>。是否继续创建？</source>
        <translation>. Continue creating the plan?</translation>
    </message>
    <message>
        <source>计划所用的资金账户</source>
        <translation>Fund account that the plan uses</translation>
    </message>
    <message>
        <source>可选的类型取决于账户的权限</source>
        <translation>The types offered depend on what the account may do</translation>
    </message>
    <message>
        <source>目标按数量还是按金额填写</source>
        <translation>Whether the target is a quantity or an amount</translation>
    </message>
    <message>
        <source>目标如何分配到各个交易日</source>
        <translation>How the target is spread over the trading days</translation>
    </message>
    <message>
        <source>输入代码或名称，从列表中选择证券</source>
        <translation>Type a code or a name and choose a security from the list</translation>
    </message>
    <message>
        <source>随所选证券显示，不能修改</source>
        <translation>Follows the chosen security and cannot be changed</translation>
    </message>
    <message>
        <source>可选的方向取决于指令类型和计划类型</source>
        <translation>The sides offered depend on the instruction type and the plan type</translation>
    </message>
    <message>
        <source>港股通委托的报价类型</source>
        <translation>Price type of a Hong Kong Connect order</translation>
    </message>
    <message>
        <source>委托的业务类别</source>
        <translation>Business that the order belongs to</translation>
    </message>
    <message>
        <source>价格或价格公式，单位：元</source>
        <translation>A price or a price formula, unit: yuan</translation>
    </message>
    <message>
        <source>计划生效的交易日</source>
        <translation>Trading days on which the plan is in effect</translation>
    </message>
    <message>
        <source>委托价格如何确定</source>
        <translation>How the order price is found</translation>
    </message>
    <message>
        <source>0到1之间的比例</source>
        <translation>A ratio between 0 and 1</translation>
    </message>
    <message>
        <source>指令如何管理和复核</source>
        <translation>How instructions are managed and reviewed</translation>
    </message>
    <message>
        <source>选择算法并填写其参数</source>
        <translation>Choose an algorithm and fill in its parameters</translation>
    </message>
    <message>
        <source>执行指令的用户</source>
        <translation>User who executes the instructions</translation>
    </message>
    <message>
        <source>减持须遵守的限制</source>
        <translation>Limit that the reduction has to keep</translation>
    </message>
    <message>
        <source>可不填写</source>
        <translation>May be left empty</translation>
    </message>
    <message>
        <source>检查并提交计划</source>
        <translation>Check and submit the plan</translation>
    </message>
    <message>
        <source>不提交计划，关闭</source>
        <translation>Close without submitting the plan</translation>
    </message>
    <message>
        <source>单位：%1</source>
        <translation>Unit: %1</translation>
    </message>
</context>
</TS>
